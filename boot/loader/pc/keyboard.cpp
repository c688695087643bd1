// Asks INT 16h for keys, and lets the processor rest meanwhile.
#include "boot/loader/pc/keyboard.h"

#include <cstring>

#include "boot/loader/pc/bios.h"
#include "boot/loader/pc/places.h"

namespace discwright::loader {

namespace {

constexpr std::uint8_t kKeyboard = 0x16;  // the interrupt
constexpr std::size_t kClock = 0x6C;      // among the variables of the BIOS: ticks since midnight

std::optional<std::uint16_t> TakeKey() {
  bios::Registers look{.eax = 0x0100};
  bios::Call(kKeyboard, look);
  if (look.Has(bios::kZero)) return std::nullopt;
  bios::Registers take;
  bios::Call(kKeyboard, take);
  return static_cast<std::uint16_t>(take.eax);
}

}  // namespace

std::uint32_t Clock() {
  std::uint32_t ticks = 0;
  std::memcpy(&ticks, bios_variables + kClock, sizeof ticks);
  return ticks;
}

std::uint16_t WaitForKey() {
  while (true) {
    if (const std::optional<std::uint16_t> key = TakeKey()) return *key;
    bios::Rest();
  }
}

std::optional<std::uint16_t> WaitForKey(std::uint32_t ticks) {
  std::uint32_t before = Clock();
  while (true) {
    if (const std::optional<std::uint16_t> key = TakeKey()) return key;
    if (ticks == 0) return std::nullopt;
    bios::Rest();
    const std::uint32_t now = Clock();
    if (now != before) --ticks;  // the clock begins at 0 again at midnight, so no times are subtracted
    before = now;
  }
}

void ForgetKeys() {
  while (TakeKey()) {
  }
}

}  // namespace discwright::loader
