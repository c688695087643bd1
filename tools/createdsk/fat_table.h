// Reads and changes the file allocation table of a FAT12 volume. FatTable unpacks the table, follows and resizes
// cluster chains, and packs it again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "tools/result.h"

namespace discwright::tools {

using Cluster = std::uint16_t;       // number of a cluster; the data area begins with 2
using Chain = std::vector<Cluster>;  // the clusters of a file or folder in order

inline constexpr Cluster kFreeCluster = 0x000;
inline constexpr Cluster kFirstEndOfChain = 0xFF8;  // this value and all above it end a chain
inline constexpr Cluster kEndOfChain = 0xFFF;       // the value that CreateDsk writes

// FAT specification 1.03, "FAT Data Structure": entry N is in the 16-bit word at byte N * 3 / 2, in its low 12 bits
// when N is even and in its high 12 bits when N is odd.
Cluster LoadFatEntry(std::span<const std::uint8_t> fat, std::size_t cluster);
void StoreFatEntry(std::span<std::uint8_t> fat, std::size_t cluster, Cluster value);

class FatTable {
 public:
  FatTable() = default;
  // `fat` holds at least cluster_count + 2 packed entries.
  FatTable(std::span<const std::uint8_t> fat, std::size_t cluster_count);

  // Follows the chain that begins at `first`. Fails when the chain leads to a cluster outside the disk, or to a cluster
  // that already belongs to this chain or to a chain claimed before.
  Result ClaimChain(Cluster first, Chain& chain);

  std::size_t FreeClusters() const;

  // Gives a chain the length `clusters`: frees its last clusters, or adds the first free clusters of the volume. There
  // must be enough free clusters.
  void Resize(Chain& chain, std::size_t clusters);

  // Packs all entries into `fat`. Leaves the bits after the last entry unchanged.
  void Store(std::span<std::uint8_t> fat) const;

  const std::vector<Cluster>& entries() const { return entries_; }

 private:
  Cluster TakeFree();

  std::vector<Cluster> entries_;
  std::vector<bool> claimed_;
};

}  // namespace discwright::tools
