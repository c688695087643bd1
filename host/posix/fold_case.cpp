// Text without letter case, for comparing names.
#include <clocale>
#include <cwctype>

#include "host/system.h"
#include "host/utf8.h"

namespace discwright::host {
namespace {

// A locale of our own: the program's may be "C", which knows no letters beyond ASCII.
locale_t Utf8Letters() {
  static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return letters;
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
    const Utf8Character next = FirstUtf8Character(text);
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
