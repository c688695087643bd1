// Writes into a text screen in memory.
#include "boot/loader/screen.h"

#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

constexpr std::size_t kWidth = kColumns - 2 * kMargin;

// Returns how many bytes of `text` stand in one row. A word that is longer than a row is broken.
std::size_t BytesOfRow(std::string_view text) {
  if (text.size() <= kWidth) return text.size();
  std::size_t size = kWidth;
  while (size > 0 && !IsBlank(text[size])) --size;
  return size == 0 ? kWidth : size;
}

}  // namespace

void Screen::Clear() {
  for (std::size_t row = 0; row < kRows; ++row) FillRow(row, Attribute::kNormal);
}

void Screen::FillRow(std::size_t row, Attribute attribute) {
  if (row >= kRows) return;
  for (std::size_t column = 0; column < kColumns; ++column) cells[row * kColumns + column] = {' ', attribute};
}

void Screen::Write(std::size_t row, std::size_t column, std::string_view text, Attribute attribute) {
  if (row >= kRows) return;
  for (const char byte : text) {
    if (column >= kColumns) return;
    const bool is_control = static_cast<unsigned char>(byte) < ' ' || byte == 127;
    cells[row * kColumns + column++] = {is_control ? ' ' : byte, attribute};
  }
}

std::size_t Screen::WriteWrapped(std::size_t row, std::size_t rows, std::string_view text, Attribute attribute) {
  std::size_t written = 0;
  while (written < rows && !text.empty()) {
    const std::size_t size = BytesOfRow(text);
    Write(row + written++, kMargin, Part(text, 0, size), attribute);
    text.remove_prefix(size);
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  }
  return written;
}

}  // namespace discwright::loader
