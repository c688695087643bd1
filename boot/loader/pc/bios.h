// The one door from C++ to the BIOS: calls interrupts in real mode. Also the jump that leaves the loader.
#pragma once

#include <cstdint>

namespace discwright::loader::bios {

inline constexpr std::uint32_t kCarry = 1;  // the flag that many functions set when they fail
inline constexpr std::uint32_t kZero = 0x40;
inline constexpr std::uint8_t kDiskInterrupt = 0x13;

// The registers before and after a call. bios.asm knows the layout.
struct Registers {
  std::uint32_t eax = 0;
  std::uint32_t ebx = 0;
  std::uint32_t ecx = 0;
  std::uint32_t edx = 0;
  std::uint32_t esi = 0;
  std::uint32_t edi = 0;
  std::uint32_t ebp = 0;
  std::uint32_t flags = 0;  // only after a call
  std::uint16_t ds = 0;
  std::uint16_t es = 0;

  [[nodiscard]] bool Has(std::uint32_t flag) const { return (flags & flag) != 0; }
};
static_assert(sizeof(Registers) == 36);

// Segment and offset of a variable of the loader, for the registers of a call. All variables are below 1 MB.
[[nodiscard]] inline std::uint16_t Segment(const void* variable) {
  return static_cast<std::uint16_t>(reinterpret_cast<std::uintptr_t>(variable) >> 4);
}
[[nodiscard]] inline std::uint16_t Offset(const void* variable) {
  return static_cast<std::uint16_t>(reinterpret_cast<std::uintptr_t>(variable) & 15);
}

// Calls an interrupt with the registers, and stores what it returns in them. The BIOS gets a stack of its own; what it
// changes beyond its documentation does no harm.
void Call(std::uint8_t interrupt, Registers& registers);

// Lets the processor rest until something happens: a key, or a tick of the clock, 18.2 times a second.
void Rest();

// Leaves the loader: jumps to segment:offset in real mode with these registers, interrupts allowed, and the stack at
// 0000:7C00.
struct RealAddress {
  std::uint16_t segment;
  std::uint16_t offset;
};
[[noreturn]] void Jump(RealAddress address, const Registers& registers);

// Leaves the loader: starts the real-mode part of a Linux kernel, which is at the start of this segment.
[[noreturn]] void StartKernel(std::uint16_t segment);

}  // namespace discwright::loader::bios
