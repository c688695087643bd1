// The file allocation table of a FAT12 volume: its packed entries, its chains, its free clusters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "tools/createdsk/result.h"

namespace discwright::tools {

using Cluster = std::uint16_t;       // 2 is the first of the data area
using Chain = std::vector<Cluster>;  // the clusters of a file or folder in order

inline constexpr Cluster kFreeCluster = 0x000;
inline constexpr Cluster kFirstEndOfChain = 0xFF8;  // this and all above
inline constexpr Cluster kEndOfChain = 0xFFF;

// FAT specification 1.03, "FAT Data Structure": entry N stands in the 12 bits from byte N * 3 / 2 on, the low bits of
// the 16-bit word there when N is even and the high ones when it is odd.
Cluster LoadFatEntry(std::span<const std::uint8_t> fat, std::size_t cluster);
void StoreFatEntry(std::span<std::uint8_t> fat, std::size_t cluster, Cluster value);

class FatTable {
 public:
  FatTable() = default;
  // `fat` holds at least cluster_count + 2 packed entries.
  FatTable(std::span<const std::uint8_t> fat, std::size_t cluster_count);

  // Follows a chain. Fails, with the reason, when it leaves the disk, meets itself or another chain read before, or
  // does not end.
  Result ClaimChain(Cluster first, Chain& chain);

  std::size_t FreeClusters() const;

  // Shortens a chain, freeing its last clusters, or lengthens it with the first free ones, of which there must be
  // enough.
  void Resize(Chain& chain, std::size_t clusters);

  // Packs all entries; bits of `fat` behind the last one stay.
  void Store(std::span<std::uint8_t> fat) const;

  const std::vector<Cluster>& entries() const { return entries_; }

 private:
  Cluster TakeFree();

  std::vector<Cluster> entries_;
  std::vector<bool> claimed_;
};

}  // namespace discwright::tools
