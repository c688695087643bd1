// Converts text to and from the code pages of Windows, by way of UTF-16. UTF-8 is read by this program's own code,
// because Windows 95 cannot read it.
#include "host/win32/native_text.h"

#include <windows.h>

#include "base/utf8.h"
#include "host/native_text.h"

namespace discwright::host {
namespace {

std::wstring WideOfBytes(std::string_view bytes, unsigned code_page) {
  const int size = static_cast<int>(bytes.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(code_page, 0, bytes.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(code_page, 0, bytes.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string BytesOfWide(const std::wstring& wide, unsigned code_page) {
  const int size = static_cast<int>(wide.size());
  const int needed = WideCharToMultiByte(code_page, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(code_page, 0, wide.data(), size, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

void AppendWide(std::wstring& wide, char32_t code_point) {
  if (code_point < 0x10000) {
    wide += static_cast<wchar_t>(code_point);
  } else {
    wide += static_cast<wchar_t>(0xD800 + ((code_point - 0x10000) >> 10));
    wide += static_cast<wchar_t>(0xDC00 + ((code_point - 0x10000) & 0x3FF));
  }
}

}  // namespace

std::string TextOfCodePage(std::string_view bytes) {
  const std::wstring wide = WideOfBytes(bytes, CP_ACP);
  std::string text;
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t code_point = wide[i];
    const bool is_pair = code_point >= 0xD800 && code_point < 0xDC00 && i + 1 < wide.size();
    if (is_pair) code_point = 0x10000 + ((code_point - 0xD800) << 10) + (static_cast<char32_t>(wide[++i]) - 0xDC00);
    base::AppendUtf8(text, code_point);
  }
  return text;
}

std::optional<std::string> CodePageBytes(std::string_view text) { return BytesInCodePage(text, CP_ACP); }

std::string TextFromNative(std::string_view native) { return TextOfCodePage(native); }

std::string TextToNative(std::string_view text) { return NearestInCodePage(text, CP_ACP); }

std::optional<std::string> BytesInCodePage(std::string_view text, unsigned code_page) {
  std::wstring wide;
  while (!text.empty()) {
    const base::Utf8Character character = base::FirstUtf8Character(text);
    if (character.length == 0) return std::nullopt;
    text.remove_prefix(character.length);
    AppendWide(wide, character.code_point);
  }
  std::string bytes = BytesOfWide(wide, code_page);
  if (WideOfBytes(bytes, code_page) != wide) return std::nullopt;
  return bytes;
}

std::string NearestInCodePage(std::string_view text, unsigned code_page) {
  std::wstring wide;
  while (!text.empty()) {
    const base::Utf8Character character = base::FirstUtf8Character(text);
    AppendWide(wide, character.length == 0 ? U'?' : character.code_point);
    text.remove_prefix(character.length == 0 ? 1 : character.length);
  }
  return BytesOfWide(wide, code_page);
}

}  // namespace discwright::host

// The compiler's start-up code must not take "*" and "?" in arguments for wildcards, however that code was built.
extern "C" {
extern int _dowildcard;
int _dowildcard = 0;
}
