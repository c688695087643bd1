// UTF-8: taking a text apart character by character, and telling which files are in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace discwright::base {

struct Utf8Character {
  char32_t code_point = 0;
  std::size_t length = 0;  // bytes; 0 when the text does not start with valid UTF-8
};

// The character that a text, not empty, starts with.
Utf8Character FirstUtf8Character(std::string_view text);

bool IsValidUtf8(std::string_view text);

void AppendUtf8(std::string& text, char32_t code_point);

// The start of a UTF-8 text, `count` characters long or shorter; a byte that is no part of valid UTF-8 counts as one.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";  // the byte order mark at the start of a file
bool HasUtf8Mark(std::string_view bytes);

// Whether a file is in UTF-8: it has the byte order mark, or it is valid UTF-8 and not plain ASCII.
bool IsUtf8File(std::string_view bytes);

// Whether a file is in UTF-16, by its byte order mark. The program reads no such files.
bool IsUtf16File(std::string_view bytes);

}  // namespace discwright::base
