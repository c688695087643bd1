// UTF-8, one character at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace discwright::host {

struct Utf8Character {
  char32_t code_point = 0;
  std::size_t length = 0;  // bytes; 0 when the text does not start with valid UTF-8
};

// The character that a text, not empty, starts with.
Utf8Character FirstUtf8Character(std::string_view text);

bool IsValidUtf8(std::string_view text);

void AppendUtf8(std::string& text, char32_t code_point);

}  // namespace discwright::host
