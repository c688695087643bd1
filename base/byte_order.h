// Stores integers in byte arrays and loads them: little-endian (Le), big-endian (Be), or both. All code for disk
// formats uses these functions. StoreLe16(field, value) writes two bytes, LoadLe16(field) reads them.
#pragma once

#include <cstdint>
#include <span>

namespace discwright::base {

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

inline void StoreBe16(std::span<std::uint8_t, 2> field, std::uint16_t value) {
  field[0] = static_cast<std::uint8_t>(value >> 8);
  field[1] = static_cast<std::uint8_t>(value & 0xFF);
}

inline void StoreBe32(std::span<std::uint8_t, 4> field, std::uint32_t value) {
  StoreBe16(field.first<2>(), static_cast<std::uint16_t>(value >> 16));
  StoreBe16(field.last<2>(), static_cast<std::uint16_t>(value & 0xFFFF));
}

// Little-endian first, then big-endian: ECMA-119 7.2.3 and 7.3.3.
inline void StoreBoth16(std::span<std::uint8_t, 4> field, std::uint16_t value) {
  StoreLe16(field.first<2>(), value);
  StoreBe16(field.last<2>(), value);
}

inline void StoreBoth32(std::span<std::uint8_t, 8> field, std::uint32_t value) {
  StoreLe32(field.first<4>(), value);
  StoreBe32(field.last<4>(), value);
}

inline std::uint16_t LoadBe16(std::span<const std::uint8_t, 2> field) {
  return static_cast<std::uint16_t>(field[0] << 8 | field[1]);
}

inline std::uint32_t LoadBe32(std::span<const std::uint8_t, 4> field) {
  return static_cast<std::uint32_t>(LoadBe16(field.first<2>())) << 16 | LoadBe16(field.last<2>());
}

}  // namespace discwright::base
