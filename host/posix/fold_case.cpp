// Text without letter case, for comparing names.
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cwctype>

#include "host/system.h"

namespace discwright::host {
namespace {

// A locale of our own: the program's may be "C", which knows no letters beyond ASCII.
locale_t Utf8Letters() {
  static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return letters;
}

struct Decoded {
  char32_t code_point = 0;
  std::size_t length = 0;  // bytes; 0 when the text does not start with valid UTF-8
};

Decoded Decode(std::string_view text) {
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
  return overlong || surrogate || code_point > 0x10FFFF ? Decoded{} : Decoded{code_point, length};
}

void AppendUtf8(std::string& text, char32_t code_point) {
  if (code_point < 0x80) {
    text += static_cast<char>(code_point);
    return;
  }
  const int continuations = code_point < 0x800 ? 1 : code_point < 0x10000 ? 2 : 3;
  const std::uint32_t lead_mark = continuations == 1 ? 0xC0 : continuations == 2 ? 0xE0 : 0xF0;
  text += static_cast<char>(lead_mark | code_point >> (6 * continuations));
  for (int i = continuations - 1; i >= 0; --i) text += static_cast<char>(0x80 | (code_point >> (6 * i) & 0x3F));
}

char32_t Lower(char32_t code_point) {
  if (code_point < 0x80) return code_point >= U'A' && code_point <= U'Z' ? code_point + 32 : code_point;
  if (Utf8Letters() == nullptr) return code_point;
  return static_cast<char32_t>(towlower_l(static_cast<wint_t>(code_point), Utf8Letters()));
}

}  // namespace

std::string FoldCase(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = Decode(text);
    if (next.length == 0) {
      folded += text.front();  // not UTF-8: a byte is only equal to itself
      text.remove_prefix(1);
    } else {
      AppendUtf8(folded, Lower(next.code_point));
      text.remove_prefix(next.length);
    }
  }
  return folded;
}

}  // namespace discwright::host
