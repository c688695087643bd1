// Small functions on text in memory, which need no heap and throw nothing.
#include "boot/loader/text.h"

#include <array>

namespace discwright::loader {

namespace {

char PathByte(char byte) { return byte == '\\' ? '/' : UpperOf(byte); }

std::string_view WithoutFirstSeparators(std::string_view path) {
  while (!path.empty() && PathByte(path.front()) == '/') path.remove_prefix(1);
  return path;
}

template <typename Fold>
bool IsSame(std::string_view left, std::string_view right, Fold fold) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (fold(left[i]) != fold(right[i])) return false;
  }
  return true;
}

}  // namespace

char UpperOf(char letter) { return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter; }

bool IsLetter(char byte) { return UpperOf(byte) >= 'A' && UpperOf(byte) <= 'Z'; }

bool IsBlank(char byte) { return byte == ' ' || byte == '\t'; }

bool IsSameText(std::string_view left, std::string_view right) { return IsSame(left, right, UpperOf); }

bool IsSamePath(std::string_view left, std::string_view right) {
  return IsSame(WithoutFirstSeparators(left), WithoutFirstSeparators(right), PathByte);
}

std::string_view Part(std::string_view text, std::size_t from, std::size_t size) {
  if (from >= text.size()) return {};
  text.remove_prefix(from);
  return size < text.size() ? std::string_view(text.data(), size) : text;
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::optional<std::uint32_t> NumberIn(std::string_view text) {
  if (text.empty() || text.size() > 9) return std::nullopt;
  std::uint32_t number = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = number * 10 + static_cast<std::uint32_t>(digit - '0');
  }
  return number;
}

TextWriter& TextWriter::Add(std::string_view text) {
  for (const char byte : text) {
    if (size_ == to_.size()) break;
    to_[size_++] = byte;
  }
  return *this;
}

TextWriter& TextWriter::Add(std::uint32_t number) {
  std::array<char, 10> digits{};
  std::size_t first = digits.size();
  do {
    digits[--first] = static_cast<char>('0' + number % 10);
    number /= 10;
  } while (number != 0);
  return Add(std::string_view(digits.data() + first, digits.size() - first));
}

}  // namespace discwright::loader
