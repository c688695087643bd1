// Writes into the memory of the text screen. The BIOS sets the mode and moves the cursor.
#include "boot/loader/pc/console.h"

#include <algorithm>

#include "boot/loader/pc/bios.h"
#include "boot/loader/pc/places.h"

namespace discwright::loader {

namespace {

constexpr std::uint8_t kVideo = 0x10;  // the interrupt
constexpr std::uint8_t kTextMode = 3;
constexpr std::uint8_t kPicture = 0x7F;             // the mode without the bit "keep the screen"
constexpr std::uint32_t kUsualCursor = 0x0607;      // its first and last line of pixels
constexpr std::uint32_t kInvisibleCursor = 0x2000;  // the bit that hides it

constexpr std::size_t kCells = Console::kColumns * Console::kLines;

std::uint16_t Cell(char letter, std::uint8_t attribute) {
  return static_cast<std::uint16_t>((attribute << 8) | static_cast<std::uint8_t>(letter));
}

}  // namespace

Console::Console() {
  bios::Registers mode{.eax = 0x0F00};
  bios::Call(kVideo, mode);
  if ((mode.eax & kPicture) != kTextMode || (mode.ebx & 0xFF00) != 0) {  // another mode, or another page of memory
    bios::Registers set{.eax = kTextMode};
    bios::Call(kVideo, set);
  }
  bios::Registers where{.eax = 0x0300};
  bios::Call(kVideo, where);
  cursor_ = {std::min<std::size_t>((where.edx >> 8) & 0xFF, kLines - 1),
             std::min<std::size_t>(where.edx & 0xFF, kColumns - 1)};
}

void Console::Clear(std::uint8_t attribute) {
  std::fill_n(text_screen, kCells, Cell(' ', attribute));
  MoveCursor({0, 0});
}

void Console::Write(std::string_view text, std::uint8_t attribute) {
  for (const char letter : text) Put(letter, attribute);
  MoveCursor(cursor_);
}

void Console::WriteAt(Place place, std::string_view text, std::uint8_t attribute) {
  if (place.line >= kLines || place.column >= kColumns) return;
  std::uint16_t* cell = text_screen + place.line * kColumns + place.column;
  for (const char letter : text.substr(0, kColumns - place.column)) *cell++ = Cell(letter, attribute);
}

void Console::MoveCursor(Place place) {
  cursor_ = {std::min(place.line, kLines - 1), std::min(place.column, kColumns - 1)};
  bios::Registers registers{.eax = 0x0200, .edx = static_cast<std::uint32_t>((cursor_.line << 8) | cursor_.column)};
  bios::Call(kVideo, registers);
}

void Console::ShowCursor(bool shown) {
  bios::Registers registers{.eax = 0x0100, .ecx = shown ? kUsualCursor : kInvisibleCursor};
  bios::Call(kVideo, registers);
}

void Console::Put(char letter, std::uint8_t attribute) {
  if (letter != '\n') {
    WriteAt(cursor_, {&letter, 1}, attribute);
    ++cursor_.column;
  }
  if (letter == '\n' || cursor_.column == kColumns) {
    cursor_.column = 0;
    ++cursor_.line;
  }
  if (cursor_.line < kLines) return;
  Scroll();
  cursor_.line = kLines - 1;
}

void Console::Scroll() {
  std::copy(text_screen + kColumns, text_screen + kCells, text_screen);
  std::fill_n(text_screen + kCells - kColumns, kColumns, Cell(' ', kLightGrey));
}

}  // namespace discwright::loader
