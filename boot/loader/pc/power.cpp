// Restarts through the entry of the BIOS, and switches off through its power management (APM 1.1).
#include "boot/loader/pc/power.h"

#include <cstring>

#include "boot/loader/pc/bios.h"
#include "boot/loader/pc/places.h"

namespace discwright::loader {

namespace {

constexpr std::size_t kResetFlag = 0x72;  // among the variables of the BIOS
constexpr std::uint16_t kWithoutMemoryTest = 0x1234;

// Calls a function of the power management for a device.
bool Manage(std::uint32_t function, std::uint32_t device, std::uint32_t value) {
  bios::Registers registers{.eax = 0x5300 | function, .ebx = device, .ecx = value};
  bios::Call(0x15, registers);
  return !registers.Has(bios::kCarry);
}

}  // namespace

void Restart() {
  std::memcpy(bios_variables + kResetFlag, &kWithoutMemoryTest, sizeof kWithoutMemoryTest);
  bios::Jump({0xFFFF, 0x0000}, {});
}

void PowerOff() {
  constexpr std::uint32_t kBios = 0;
  constexpr std::uint32_t kAllDevices = 1;
  if (!Manage(0x00, kBios, 0)) return;  // is there any power management?
  Manage(0x04, kBios, 0);               // end a connection of an earlier program
  if (!Manage(0x01, kBios, 0)) return;  // connect
  Manage(0x0E, kBios, 0x0102);          // speak version 1.2
  Manage(0x0D, kAllDevices, 1);         // engage it for all devices
  Manage(0x07, kAllDevices, 3);         // off
}

void StartNextDevice() {
  bios::Registers registers{};
  bios::Call(0x18, registers);
  Restart();
}

}  // namespace discwright::loader
