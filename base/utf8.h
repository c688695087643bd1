// Reads and writes UTF-8, and finds out whether a file is in UTF-8 or UTF-16.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace discwright::base {

struct Utf8Character {
  char32_t code_point = 0;
  std::size_t length = 0;  // bytes; 0 when the text does not start with valid UTF-8
};

// The first character of a text. The text must not be empty.
Utf8Character FirstUtf8Character(std::string_view text);

bool IsValidUtf8(std::string_view text);

void AppendUtf8(std::string& text, char32_t code_point);

// The first `count` characters of a UTF-8 text, or the whole text when it is shorter. Each byte that is not part of
// valid UTF-8 counts as one character.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";  // the byte order mark at the start of a file
bool HasUtf8Mark(std::string_view bytes);

// Whether a file is in UTF-8: it begins with the byte order mark, or it is valid UTF-8 with characters outside ASCII.
bool IsUtf8File(std::string_view bytes);

// Whether a file begins with a byte order mark of UTF-16. The program does not read such files.
bool IsUtf16File(std::string_view bytes);

}  // namespace discwright::base
