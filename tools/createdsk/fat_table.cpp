// Packs and unpacks FAT12 entries, follows and resizes chains.
#include "tools/createdsk/fat_table.h"

#include <algorithm>
#include <cassert>

#include "base/byte_order.h"

namespace discwright::tools {

Cluster LoadFatEntry(std::span<const std::uint8_t> fat, std::size_t cluster) {
  const std::uint16_t word = base::LoadLe16(fat.subspan(cluster * 3 / 2).first<2>());
  return static_cast<Cluster>(cluster % 2 == 0 ? word & 0xFFF : word >> 4);
}

void StoreFatEntry(std::span<std::uint8_t> fat, std::size_t cluster, Cluster value) {
  const auto field = fat.subspan(cluster * 3 / 2).first<2>();
  const std::uint16_t word = base::LoadLe16(field);
  const int packed = cluster % 2 == 0 ? (word & 0xF000) | value : (word & 0x000F) | value << 4;
  base::StoreLe16(field, static_cast<std::uint16_t>(packed));
}

FatTable::FatTable(std::span<const std::uint8_t> fat, std::size_t cluster_count) : claimed_(cluster_count + 2) {
  for (std::size_t cluster = 0; cluster < cluster_count + 2; ++cluster) entries_.push_back(LoadFatEntry(fat, cluster));
}

Result FatTable::ClaimChain(Cluster first, Chain& chain) {
  chain.clear();
  for (Cluster cluster = first; cluster < kFirstEndOfChain; cluster = entries_[cluster]) {
    if (cluster < 2 || cluster >= entries_.size()) return Result::Failure("its cluster chain leaves the disk");
    if (claimed_[cluster]) return Result::Failure("its cluster chain meets itself or that of another file");
    claimed_[cluster] = true;
    chain.push_back(cluster);
  }
  return chain.empty() ? Result::Failure("its cluster chain leaves the disk") : Result::Success();
}

std::size_t FatTable::FreeClusters() const {
  return static_cast<std::size_t>(std::count(entries_.begin() + 2, entries_.end(), kFreeCluster));
}

void FatTable::Resize(Chain& chain, std::size_t clusters) {
  while (chain.size() > clusters) {
    entries_[chain.back()] = kFreeCluster;
    chain.pop_back();
    if (!chain.empty()) entries_[chain.back()] = kEndOfChain;
  }
  while (chain.size() < clusters) {
    const Cluster cluster = TakeFree();
    if (!chain.empty()) entries_[chain.back()] = cluster;
    chain.push_back(cluster);
  }
}

void FatTable::Store(std::span<std::uint8_t> fat) const {
  for (std::size_t cluster = 0; cluster < entries_.size(); ++cluster) StoreFatEntry(fat, cluster, entries_[cluster]);
}

Cluster FatTable::TakeFree() {
  const auto free = std::find(entries_.begin() + 2, entries_.end(), kFreeCluster);
  assert(free != entries_.end());
  *free = kEndOfChain;
  return static_cast<Cluster>(free - entries_.begin());
}

}  // namespace discwright::tools
