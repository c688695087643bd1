// The text screen: 25 lines of 80 characters with attributes, and the cursor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace discwright::loader {

class Console {
 public:
  static constexpr std::size_t kColumns = 80;
  static constexpr std::size_t kLines = 25;
  static constexpr std::uint8_t kLightGrey = 7;  // the usual attribute: light grey on black

  struct Place {
    std::size_t line;
    std::size_t column;
  };

  // Takes over the screen as the BIOS left it; switches to the text mode when it is in another mode.
  Console();

  void Clear(std::uint8_t attribute = kLightGrey);  // and puts the cursor into the first line

  // Writes at the cursor and moves it. "\n" begins a new line. The screen scrolls at its end.
  void Write(std::string_view text, std::uint8_t attribute = kLightGrey);

  // Writes at a place without moving the cursor. What would be beyond the line or the screen is left out.
  static void WriteAt(Place place, std::string_view text, std::uint8_t attribute);

  void MoveCursor(Place place);
  static void ShowCursor(bool shown);

 private:
  void Put(char letter, std::uint8_t attribute);
  static void Scroll();

  Place cursor_{};
};

}  // namespace discwright::loader
