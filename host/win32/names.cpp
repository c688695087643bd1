// Converts names and paths to the system's spelling, and folds letter case.
#include "host/names.h"

#include <windows.h>

#include <array>

#include "base/utf8.h"
#include "host/native_text.h"
#include "host/win32/native_path.h"
#include "host/win32/native_text.h"

namespace discwright::host {
namespace {

constexpr std::size_t kShortPathBuffer = 300;

bool IsAscii(char character) { return static_cast<unsigned char>(character) < 0x80; }

// Uses the system's tables for its ANSI code page. No name that can be opened has a character that this code page
// lacks.
std::string Lower(std::string_view character) {
  std::optional<std::string> ansi = CodePageBytes(character);
  if (!ansi) return std::string(character);
  CharLowerBuffA(ansi->data(), static_cast<DWORD>(ansi->size()));
  return TextOfCodePage(*ansi);
}

}  // namespace

std::string FoldCase(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  while (!text.empty()) {
    const char first = text.front();
    const base::Utf8Character next = IsAscii(first) ? base::Utf8Character{} : base::FirstUtf8Character(text);
    if (next.length == 0) {
      folded += first >= 'A' && first <= 'Z' ? static_cast<char>(first + 32) : first;
      text.remove_prefix(1);
    } else {
      folded += Lower(text.substr(0, next.length));
      text.remove_prefix(next.length);
    }
  }
  return folded;
}

std::string NameOnDisc(std::string_view name) { return std::string(name); }

std::string PathFromNative(std::string_view native) { return AbsolutePath(native); }

std::string PathToNative(std::string_view path) { return AbsolutePath(path); }

std::string ShortPath(std::string_view path) {
  const AnsiPath ansi(path);
  if (!ansi.status.ok()) return {};
  std::array<char, kShortPathBuffer> shortened{};
  return TextOfBuffer(shortened,
                      GetShortPathNameA(ansi.c_str(), shortened.data(), static_cast<DWORD>(shortened.size())));
}

}  // namespace discwright::host
