// Reads bytes from sectors.
#include "boot/loader/sectors.h"

#include <algorithm>

namespace discwright::loader {

namespace {

bool ReadInsideSector(Sectors& sectors, std::uint32_t sector, std::size_t from, std::span<std::uint8_t> to,
                      std::span<std::uint8_t> room) {
  if (!sectors.Read(sector, room)) return false;
  const std::span<std::uint8_t> part = room.subspan(from, to.size());
  std::copy(part.begin(), part.end(), to.begin());
  return true;
}

}  // namespace

bool ReadBytes(Sectors& sectors, std::uint32_t sector, std::size_t from, std::span<std::uint8_t> to,
               std::span<std::uint8_t> room) {
  const std::size_t sector_size = room.size();
  sector += static_cast<std::uint32_t>(from / sector_size);
  from %= sector_size;
  if (from != 0 && !to.empty()) {
    const std::size_t size = std::min(to.size(), sector_size - from);
    if (!ReadInsideSector(sectors, sector, from, to.first(size), room)) return false;
    to = to.subspan(size);
    ++sector;
  }
  const std::size_t whole = to.size() / sector_size;
  if (whole != 0 && !sectors.Read(sector, to.first(whole * sector_size))) return false;
  to = to.subspan(whole * sector_size);
  return to.empty() || ReadInsideSector(sectors, sector + static_cast<std::uint32_t>(whole), 0, to, room);
}

}  // namespace discwright::loader
