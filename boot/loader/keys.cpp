// Makes keys from what the BIOS returns.
#include "boot/loader/keys.h"

namespace discwright::loader {

namespace {

MenuKey MenuKeyFromScanCode(std::uint8_t code) {
  constexpr std::uint8_t kAlt1 = 0x78, kAlt9 = 0x80, kAlt0 = 0x81;
  if (code >= kAlt1 && code <= kAlt9) return {KeyKind::kAltDigit, static_cast<std::uint8_t>(code - kAlt1 + 1)};
  switch (code) {
    case kAlt0:
      return {KeyKind::kAltDigit, 0};
    case 0x47:
      return {KeyKind::kHome, 0};
    case 0x48:
      return {KeyKind::kUp, 0};
    case 0x49:
      return {KeyKind::kPageUp, 0};
    case 0x4F:
      return {KeyKind::kEnd, 0};
    case 0x50:
      return {KeyKind::kDown, 0};
    case 0x51:
      return {KeyKind::kPageDown, 0};
    default:
      return {};
  }
}

}  // namespace

MenuKey MenuKeyFromBios(std::uint16_t ax) {
  const auto byte = static_cast<std::uint8_t>(ax);
  const auto code = static_cast<std::uint8_t>(ax >> 8);
  // The grey keys between letters and number pad have 0 or E0h in place of the character. With the scan code 0, E0h is
  // a character that was typed by its number.
  if (byte == 0 || (byte == 0xE0 && code != 0)) return MenuKeyFromScanCode(code);
  switch (byte) {
    case 0x0D:
      return {KeyKind::kEnter, 0};
    case 0x1B:
      return {KeyKind::kEscape, 0};
    case 0x08:
      return {KeyKind::kBackspace, 0};
    default:
      break;
  }
  return byte >= 32 && byte != 127 ? MenuKey{KeyKind::kCharacter, byte} : MenuKey{};
}

}  // namespace discwright::loader
