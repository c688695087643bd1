// Computes SHA-256 digests (FIPS 180-4), for systems without a library that does. Call Add for each part of the data,
// then Finish.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace discwright::base {

class Sha256 {
 public:
  void Add(std::span<const std::byte> bytes);
  // Returns the digest of all added bytes in lower-case hexadecimal. Call it once, after the last Add.
  std::string Finish();

 private:
  static constexpr std::size_t kBlock = 64;  // bytes

  void TakeBlock(const std::byte* block);

  std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::array<std::byte, kBlock> held_{};  // an incomplete block: its first `length_` mod 64 bytes are used
  std::uint64_t length_ = 0;              // bytes added so far
};

}  // namespace discwright::base
