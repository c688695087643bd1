// Enables line A20 through the BIOS, through port 92h or through the keyboard controller, whichever works first.
#include "boot/loader/pc/a20.h"

#include <cstdint>

#include "boot/loader/pc/bios.h"
#include "boot/loader/pc/places.h"
#include "boot/loader/pc/ports.h"

namespace discwright::loader {

namespace {

constexpr std::uint16_t kSystemControl = 0x92;
constexpr std::uint8_t kA20OfSystemControl = 2;
constexpr std::uint8_t kResetOfSystemControl = 1;

constexpr std::uint16_t kController = 0x64;  // the keyboard controller
constexpr std::uint16_t kControllerData = 0x60;
constexpr std::uint8_t kInputFull = 2;
constexpr std::uint8_t kWriteOutputPort = 0xD1;
constexpr std::uint8_t kOutputPortWithA20 = 0xDF;
constexpr std::uint8_t kNoCommand = 0xFF;

constexpr int kPatience = 65536;  // accesses to a port or the memory: each takes a microsecond or less

// Whether the bytes at 500h and 100500h are different ones. The old value is put back.
bool IsOn() {
  volatile std::uint8_t* low = bios_variables + 0x100;
  const volatile std::uint8_t* high = low + 0x100000;
  const std::uint8_t kept = *low;
  *low = static_cast<std::uint8_t>(*high + 1);
  const bool differ = *low != *high;
  *low = kept;
  return differ;
}

// Some machines need a while to switch.
bool ComesOn() {
  for (int turn = 0; turn < kPatience; ++turn) {
    if (IsOn()) return true;
  }
  return false;
}

void AskBios() {
  bios::Registers registers{.eax = 0x2401};
  bios::Call(0x15, registers);
}

void UseSystemControl() {
  const std::uint8_t value = In(kSystemControl);
  if ((value & kA20OfSystemControl) != 0) return;
  Out(kSystemControl, static_cast<std::uint8_t>((value | kA20OfSystemControl) & ~kResetOfSystemControl));
}

void WaitForController() {
  for (int turn = 0; turn < kPatience && (In(kController) & kInputFull) != 0; ++turn) {
  }
}

void UseController() {
  WaitForController();
  Out(kController, kWriteOutputPort);
  WaitForController();
  Out(kControllerData, kOutputPortWithA20);
  WaitForController();
  Out(kController, kNoCommand);  // some controllers finish the command before only with another one
  WaitForController();
}

}  // namespace

bool EnableA20() {
  if (IsOn()) return true;
  AskBios();
  if (IsOn()) return true;
  UseController();
  if (ComesOn()) return true;
  UseSystemControl();  // last, because some machines have something else at this port
  return ComesOn();
}

}  // namespace discwright::loader
