// Small functions on text in memory, which need no heap and throw nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace discwright::loader {

// Letters are those of ASCII: the functions below leave all other bytes as they are.
char UpperOf(char letter);
bool IsLetter(char byte);
bool IsBlank(char byte);

// Compares without regard to letter case.
bool IsSameText(std::string_view left, std::string_view right);

// Compares without regard to letter case, to "/" or "\" between the names, and to a separator in front.
bool IsSamePath(std::string_view left, std::string_view right);

// Returns at most `size` bytes of `text` from byte `from` on. It is empty when `from` is behind the end.
std::string_view Part(std::string_view text, std::size_t from, std::size_t size = static_cast<std::size_t>(-1));

// Returns `text` without the blanks and tabs around it.
std::string_view Trim(std::string_view text);

// Reads a decimal number of one to nine digits; nothing else may stand in `text`.
std::optional<std::uint32_t> NumberIn(std::string_view text);

// Puts texts and numbers one behind the other into memory of the caller. What does not fit is left out.
class TextWriter {
 public:
  explicit TextWriter(std::span<char> to) : to_(to) {}
  TextWriter& Add(std::string_view text);
  TextWriter& Add(std::uint32_t number);
  [[nodiscard]] std::string_view text() const { return {to_.data(), size_}; }

 private:
  std::span<char> to_;
  std::size_t size_ = 0;
};

}  // namespace discwright::loader
