// Keys, as the BIOS reads them from the keyboard.
#pragma once

#include <cstdint>
#include <optional>

namespace discwright::loader {

inline constexpr std::uint32_t kTicksPerMinute = 1092;  // the clock of the BIOS ticks 18.2 times a second

// The ticks since midnight.
[[nodiscard]] std::uint32_t Clock();

// Waits for a key. Returns AX of INT 16h: the scan code and the character. MenuKeyFromBios of keys.h understands it.
[[nodiscard]] std::uint16_t WaitForKey();

// Waits for a key for a number of ticks. Zero ticks take a key that was pressed before.
[[nodiscard]] std::optional<std::uint16_t> WaitForKey(std::uint32_t ticks);

// Drops the keys that were pressed before.
void ForgetKeys();

}  // namespace discwright::loader
