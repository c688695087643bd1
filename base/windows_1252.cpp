// Has the table of the bytes that differ from Latin-1.
#include "base/windows_1252.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/utf8.h"

namespace discwright::base {

namespace {

constexpr std::size_t kFirstSpecial = 0x80;
// The characters of the bytes 80h to 9Fh. Windows-1252 does not define five of them; they become the control characters
// of the same number, as on Windows.
constexpr std::array<char32_t, 32> kSpecials = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<char> Windows1252Byte(char32_t code_point) {
  const auto* const special = std::find(kSpecials.begin(), kSpecials.end(), code_point);
  if (special != kSpecials.end()) {
    return static_cast<char>(kFirstSpecial + static_cast<std::size_t>(std::distance(kSpecials.begin(), special)));
  }
  const bool same_number = code_point < kFirstSpecial || (code_point >= 0xA0 && code_point <= 0xFF);
  return same_number ? std::optional(static_cast<char>(code_point)) : std::nullopt;
}

}  // namespace

std::optional<std::string> ToWindows1252(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const Utf8Character character = FirstUtf8Character(text);
    if (character.length == 0) return std::nullopt;
    const std::optional<char> byte = Windows1252Byte(character.code_point);
    if (!byte) return std::nullopt;
    bytes += *byte;
    text.remove_prefix(character.length);
  }
  return bytes;
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

}  // namespace discwright::base
