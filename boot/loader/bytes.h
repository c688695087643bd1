// Loads little-endian numbers of disk formats from bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace discwright::loader {

inline std::uint32_t Number16(std::span<const std::uint8_t> bytes, std::size_t at) {
  return bytes[at] | static_cast<std::uint32_t>(bytes[at + 1]) << 8;
}

inline std::uint32_t Number32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return Number16(bytes, at) | Number16(bytes, at + 2) << 16;
}

}  // namespace discwright::loader
