// Converts names and paths to the system's spelling, and folds letter case.
#include <clocale>
#include <cwctype>

#include "base/utf8.h"
#include "host/names.h"
#include "host/posix/case_lookup.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

// The program's locale may be "C", which has only ASCII letters, so a separate locale is used.
locale_t Utf8Letters() {
  static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return letters;
}

char32_t Lower(char32_t code_point) {
  if (code_point < 0x80) return code_point >= U'A' && code_point <= U'Z' ? code_point + 32 : code_point;
  if (Utf8Letters() == nullptr) return code_point;
  return static_cast<char32_t>(towlower_l(static_cast<wint_t>(code_point), Utf8Letters()));
}

// The upper-case form of a letter. It is the letter itself when that form has another lower-case form (a sharp s, a
// long s, a dotless i), because two different names must not become the same.
char32_t Upper(char32_t code_point) {
  if (code_point < 0x80) return code_point >= U'a' && code_point <= U'z' ? code_point - 32 : code_point;
  if (Utf8Letters() == nullptr) return code_point;
  const auto upper = static_cast<char32_t>(towupper_l(static_cast<wint_t>(code_point), Utf8Letters()));
  return Lower(upper) == code_point ? upper : code_point;
}

// Returns the text with `change` applied to each character.
std::string Changed(std::string_view text, char32_t (*change)(char32_t)) {
  std::string changed;
  changed.reserve(text.size());
  while (!text.empty()) {
    const base::Utf8Character next = base::FirstUtf8Character(text);
    if (next.length == 0) {
      changed += text.front();  // not UTF-8: the byte does not change
      text.remove_prefix(1);
    } else {
      base::AppendUtf8(changed, change(next.code_point));
      text.remove_prefix(next.length);
    }
  }
  return changed;
}

}  // namespace

std::string FoldCase(std::string_view text) { return Changed(text, Lower); }

std::string NameOnDisc(std::string_view name) {
  const bool has_upper_case = FoldCase(name) != name;
  return has_upper_case ? std::string(name) : Changed(name, Upper);
}

std::string PathToNative(std::string_view path) {
  const Result<std::string> native = RealPath(path);
  return native.ok() ? native.value : NativePath(path);
}

std::string ShortPath(std::string_view) { return {}; }

}  // namespace discwright::host
