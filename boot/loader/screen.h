// A text screen of 80 x 25 cells in memory. Its cells are those of a PC's video memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace discwright::loader {

inline constexpr std::size_t kColumns = 80;
inline constexpr std::size_t kRows = 25;
inline constexpr std::size_t kMargin = 2;  // columns that stay free left and right of running text

// The colour of the text in the low half, that of the ground in the high half.
enum class Attribute : std::uint8_t {
  kNormal = 0x07,
  kTitle = 0x1F,
  kChosen = 0x70,
  kGreyed = 0x08,
  kChosenGreyed = 0x78,
  kHelp = 0x0F,
  kMessage = 0x0E,
};

struct Cell {
  char byte = ' ';
  Attribute attribute = Attribute::kNormal;
};

struct Screen {
  std::array<Cell, kColumns * kRows> cells{};

  void Clear();
  void FillRow(std::size_t row, Attribute attribute);
  // Writes `text` from `column` on, at most up to the right edge. Control bytes become blanks.
  void Write(std::size_t row, std::size_t column, std::string_view text, Attribute attribute);
  // Writes `text` between the margins of as many rows as it needs, at most `rows`, broken at blanks. Returns their
  // number.
  std::size_t WriteWrapped(std::size_t row, std::size_t rows, std::string_view text, Attribute attribute);
};

}  // namespace discwright::loader
