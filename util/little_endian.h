// Little-endian integers in byte arrays: the only way in which disk formats are written and read.
#pragma once

#include <cstdint>
#include <span>

namespace discwright::util {

inline void StoreLe16(std::span<std::uint8_t, 2> field, std::uint16_t value) {
  field[0] = static_cast<std::uint8_t>(value & 0xFF);
  field[1] = static_cast<std::uint8_t>(value >> 8);
}

inline void StoreLe32(std::span<std::uint8_t, 4> field, std::uint32_t value) {
  StoreLe16(field.first<2>(), static_cast<std::uint16_t>(value & 0xFFFF));
  StoreLe16(field.last<2>(), static_cast<std::uint16_t>(value >> 16));
}

inline std::uint16_t LoadLe16(std::span<const std::uint8_t, 2> field) {
  return static_cast<std::uint16_t>(field[0] | field[1] << 8);
}

inline std::uint32_t LoadLe32(std::span<const std::uint8_t, 4> field) {
  return LoadLe16(field.first<2>()) | static_cast<std::uint32_t>(LoadLe16(field.last<2>())) << 16;
}

}  // namespace discwright::util
