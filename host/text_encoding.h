// The bytes of settings files: the code page wherever it can hold the text, UTF-8 with a byte order mark otherwise.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace discwright::host {

// Chosen so that DecodeText(EncodeText(text)) == text for every text, also one that is not valid UTF-8.
std::string EncodeText(std::string_view text);

// A byte order mark, or bytes that are valid UTF-8 beyond ASCII, mean UTF-8; anything else is in the code page.
bool IsUtf8File(std::string_view bytes);
bool HasUtf8Mark(std::string_view bytes);  // the byte order mark
std::string DecodeText(std::string_view bytes);

// Text of two bytes per character, by its byte order mark; nothing here reads it.
bool IsUtf16File(std::string_view bytes);

// The start of a UTF-8 text, `count` characters long or shorter; a byte that is no part of valid UTF-8 counts as one.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace discwright::host
