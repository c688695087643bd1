// Hands calls of the BIOS over to bios.asm.
#include "boot/loader/pc/bios.h"

using discwright::loader::bios::Registers;

extern "C" {
void RealModeCall(std::uint32_t interrupt, Registers* registers);
void RealModeWait();
[[noreturn]] void RealModeJump(std::uint32_t address, Registers* registers);
[[noreturn]] void RealModeStartKernel(std::uint32_t address);
}

namespace discwright::loader::bios {

void Call(std::uint8_t interrupt, Registers& registers) { RealModeCall(interrupt, &registers); }

void Rest() { RealModeWait(); }

void Jump(RealAddress address, const Registers& registers) {
  Registers copy = registers;
  RealModeJump((std::uint32_t{address.segment} << 16) | address.offset, &copy);
}

void StartKernel(std::uint16_t segment) {
  constexpr std::uint32_t kEntry = 0x20;  // paragraphs behind the start: the first sector is never run
  RealModeStartKernel((segment + kEntry) << 16);
}

}  // namespace discwright::loader::bios
