// The keys that the menu knows, and how they come from the BIOS.
//
// A character is the byte that the BIOS makes of it: keys are those of a US keyboard. Every byte can be typed by its
// number. With the number pad, the BIOS itself makes the byte: hold Alt, type the number, let go. A BIOS or keyboard
// without that has the digits of the top row: hold Alt and type all three digits, for example 0 6 4. The wizard
// writes passwords as Windows-1252 (or the code page of its Windows): there an u umlaut is 252.
#pragma once

#include <cstdint>

namespace discwright::loader {

enum class KeyKind : std::uint8_t {
  kOther,      // a key that means nothing
  kCharacter,  // `byte` is 32 to 126, or 128 to 255
  kAltDigit,   // Alt and a digit of the top row: `byte` is 0 to 9
  kUp,
  kDown,
  kHome,
  kEnd,
  kPageUp,
  kPageDown,
  kEnter,
  kEscape,
  kBackspace,
};

struct MenuKey {
  KeyKind kind = KeyKind::kOther;
  std::uint8_t byte = 0;
};

// `ax` is what INT 16h returns with AH=00h or AH=10h: the scan code in the high byte, the character in the low one.
MenuKey MenuKeyFromBios(std::uint16_t ax);

}  // namespace discwright::loader
