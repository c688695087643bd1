// Reads sectors of the image. The loader's disk door implements it on the BIOS, and tests on a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace discwright::loader {

inline constexpr std::size_t kSectorSize = 2048;  // bytes, whatever the size of the drive's own sectors is

class Sectors {
 public:
  // Reads to.size() / kSectorSize sectors from `sector` on; to.size() is a multiple of kSectorSize. Returns false when
  // they cannot be read.
  virtual bool Read(std::uint32_t sector, std::span<std::uint8_t> to) = 0;

 protected:
  ~Sectors() = default;
};

}  // namespace discwright::loader
