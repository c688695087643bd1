// Windows-1252 and UTF-8.
#include "util/text_encoding.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace discwright::util {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr std::size_t kFirstSpecial = 0x80;
// What the bytes 80h to 9Fh stand for; the five that Windows-1252 leaves open keep their number, as on Windows.
constexpr std::array<char32_t, 32> kSpecials = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Character {
  char32_t code_point = 0;
  std::size_t length = 0;  // bytes
};

// The bits of a sequence's first byte and its length; nothing for a byte that cannot start one.
std::optional<Character> FirstByte(unsigned char byte) {
  if (byte < 0x80) return Character{byte, 1};
  if (byte >= 0xC0 && byte < 0xE0) return Character{byte & 0x1Fu, 2};
  if (byte >= 0xE0 && byte < 0xF0) return Character{byte & 0x0Fu, 3};
  if (byte >= 0xF0 && byte < 0xF8) return Character{byte & 0x07u, 4};
  return std::nullopt;
}

// The character that a text, not empty, starts with; nothing when that is not valid UTF-8.
std::optional<Character> FirstCharacter(std::string_view text) {
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  std::optional<Character> character = FirstByte(static_cast<unsigned char>(text[0]));
  if (!character || text.size() < character->length) return std::nullopt;
  for (std::size_t i = 1; i < character->length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0u) != 0x80u) return std::nullopt;
    character->code_point = character->code_point << 6 | (byte & 0x3Fu);
  }
  const char32_t code_point = character->code_point;
  const bool is_surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
  if (code_point < kSmallest[character->length] || code_point > 0x10FFFF || is_surrogate) return std::nullopt;
  return character;
}

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::optional<Character> character = FirstCharacter(text);
    if (!character) return false;
    text.remove_prefix(character->length);
  }
  return true;
}

std::optional<char> Windows1252Byte(char32_t code_point) {
  const auto* const special = std::find(kSpecials.begin(), kSpecials.end(), code_point);
  if (special != kSpecials.end()) {
    return static_cast<char>(kFirstSpecial + static_cast<std::size_t>(std::distance(kSpecials.begin(), special)));
  }
  const bool same_number = code_point < kFirstSpecial || (code_point >= 0xA0 && code_point <= 0xFF);
  return same_number ? std::optional(static_cast<char>(code_point)) : std::nullopt;
}

std::optional<std::string> ToWindows1252(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const std::optional<Character> character = FirstCharacter(text);
    if (!character) return std::nullopt;
    const std::optional<char> byte = Windows1252Byte(character->code_point);
    if (!byte) return std::nullopt;
    bytes += *byte;
    text.remove_prefix(character->length);
  }
  return bytes;
}

// Of a character below U+10000, as all of Windows-1252 are.
void AppendUtf8(std::string& text, char32_t code_point) {
  if (code_point < 0x80) {
    text += static_cast<char>(code_point);
    return;
  }
  if (code_point < 0x800) {
    text += static_cast<char>(0xC0u | code_point >> 6);
  } else {
    text += static_cast<char>(0xE0u | code_point >> 12);
    text += static_cast<char>(0x80u | (code_point >> 6 & 0x3Fu));
  }
  text += static_cast<char>(0x80u | (code_point & 0x3Fu));
}

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  for (const char character : bytes) {
    const auto byte = static_cast<unsigned char>(character);
    const bool is_special = byte >= kFirstSpecial && byte < kFirstSpecial + kSpecials.size();
    AppendUtf8(text, is_special ? kSpecials[byte - kFirstSpecial] : byte);
  }
  return text;
}

}  // namespace

std::string EncodeText(std::string_view text) {
  // Bytes that a reader would take for UTF-8 by chance ("Ã¤" is "ä" there) do not come back as they were.
  const std::optional<std::string> bytes = ToWindows1252(text);
  if (bytes && DecodeText(*bytes) == text) return *bytes;
  return std::string(kByteOrderMark).append(text);
}

std::string DecodeText(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) return std::string(bytes.substr(kByteOrderMark.size()));
  return IsValidUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t length = 0;
  for (; count > 0 && length < text.size(); --count) {
    const std::optional<Character> character = FirstCharacter(text.substr(length));
    length += character ? character->length : 1;
  }
  return text.substr(0, length);
}

}  // namespace discwright::util
