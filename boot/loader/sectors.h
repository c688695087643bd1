// Reads sectors of a volume. The loader's disk doors implement it on the BIOS, and tests on a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace discwright::loader {

// The size of a sector in bytes. It depends on the kind of the volume, and not on the drive, whose own sectors may have
// another size.
inline constexpr std::size_t kSectorSize = 2048;  // of a CD
inline constexpr std::size_t kFloppySectorSize = 512;

class Sectors {
 public:
  // Reads the sectors from `sector` on that fill `to`; to.size() is a multiple of the sector's size. Returns false when
  // they cannot be read.
  virtual bool Read(std::uint32_t sector, std::span<std::uint8_t> to) = 0;

 protected:
  ~Sectors() = default;
};

// Reads the bytes that begin `from` bytes behind the start of `sector`. `room` has the size of one sector, for the
// sectors that are needed in part; whole sectors go straight to `to`. Returns false when they cannot be read.
bool ReadBytes(Sectors& sectors, std::uint32_t sector, std::size_t from, std::span<std::uint8_t> to,
               std::span<std::uint8_t> room);

}  // namespace discwright::loader
