// Keys, as the BIOS reads them from the keyboard.
#pragma once

#include <cstdint>
#include <optional>

namespace discwright::loader {

inline constexpr std::uint32_t kTicksPerMinute = 1092;  // the clock of the BIOS ticks 18.2 times a second

struct Key {
  char letter;        // 0 for a key without a character
  std::uint8_t code;  // the scan code, which tells such keys apart
};

// Waits for a key.
[[nodiscard]] Key WaitForKey();

// Waits for a key for a number of ticks. Zero ticks take a key that was pressed before.
[[nodiscard]] std::optional<Key> WaitForKey(std::uint32_t ticks);

// Drops the keys that were pressed before.
void ForgetKeys();

}  // namespace discwright::loader
