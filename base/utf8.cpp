// Decodes UTF-8. Overlong forms and surrogates count as invalid.
#include "base/utf8.h"

#include <algorithm>

namespace discwright::base {

Utf8Character FirstUtf8Character(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length == 0 || length > text.size()) return {};
  char32_t code_point = length == 1 ? lead : lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0u) != 0x80) return {};
    code_point = code_point << 6 | (next & 0x3Fu);
  }
  const bool overlong = (length == 3 && code_point < 0x800) || (length == 4 && code_point < 0x10000);
  const bool surrogate = code_point >= 0xD800 && code_point < 0xE000;
  return overlong || surrogate || code_point > 0x10FFFF ? Utf8Character{} : Utf8Character{code_point, length};
}

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const Utf8Character character = FirstUtf8Character(text);
    if (character.length == 0) return false;
    text.remove_prefix(character.length);
  }
  return true;
}

void AppendUtf8(std::string& text, char32_t code_point) {
  if (code_point < 0x80) {
    text += static_cast<char>(code_point);
    return;
  }
  const int continuations = code_point < 0x800 ? 1 : code_point < 0x10000 ? 2 : 3;
  const unsigned lead_mark = continuations == 1 ? 0xC0 : continuations == 2 ? 0xE0 : 0xF0;
  text += static_cast<char>(lead_mark | code_point >> (6 * continuations));
  for (int i = continuations - 1; i >= 0; --i) text += static_cast<char>(0x80 | (code_point >> (6 * i) & 0x3F));
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t length = 0;
  for (; count > 0 && length < text.size(); --count) {
    length += std::max<std::size_t>(FirstUtf8Character(text.substr(length)).length, 1);
  }
  return text.substr(0, length);
}

bool HasUtf8Mark(std::string_view bytes) { return bytes.starts_with(kUtf8Mark); }

bool IsUtf8File(std::string_view bytes) {
  const auto is_ascii = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
  return HasUtf8Mark(bytes) || (!std::ranges::all_of(bytes, is_ascii) && IsValidUtf8(bytes));
}

bool IsUtf16File(std::string_view bytes) { return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"); }

}  // namespace discwright::base
