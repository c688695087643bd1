// Reads and writes the ports of the processor.
#pragma once

#include <cstdint>

namespace discwright::loader {

inline void Out(std::uint16_t port, std::uint8_t value) { __asm__ volatile("outb %0, %1" : : "a"(value), "Nd"(port)); }

[[nodiscard]] inline std::uint8_t In(std::uint16_t port) {
  std::uint8_t value = 0;
  __asm__ volatile("inb %1, %0" : "=a"(value) : "Nd"(port));
  return value;
}

}  // namespace discwright::loader
