// Goes through UTF-16. UTF-8 is taken apart here, because Windows 95 does not know it.
#include "host/win32/ansi.h"

#include <windows.h>

#include "host/utf8.h"

namespace discwright::host {
namespace {

std::wstring WideOfAnsi(std::string_view ansi) {
  const int size = static_cast<int>(ansi.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, ansi.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_ACP, 0, ansi.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string AnsiOfWide(const std::wstring& wide) {
  const int size = static_cast<int>(wide.size());
  const int needed = WideCharToMultiByte(CP_ACP, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string ansi(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), size, ansi.data(), needed, nullptr, nullptr);
  return ansi;
}

}  // namespace

std::string Utf8OfAnsi(std::string_view ansi) {
  const std::wstring wide = WideOfAnsi(ansi);
  std::string text;
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t code_point = wide[i];
    const bool is_pair = code_point >= 0xD800 && code_point < 0xDC00 && i + 1 < wide.size();
    if (is_pair) code_point = 0x10000 + ((code_point - 0xD800) << 10) + (static_cast<char32_t>(wide[++i]) - 0xDC00);
    AppendUtf8(text, code_point);
  }
  return text;
}

std::optional<std::string> AnsiOfUtf8(std::string_view text) {
  std::wstring wide;
  while (!text.empty()) {
    const Utf8Character character = FirstUtf8Character(text);
    if (character.length == 0) return std::nullopt;
    text.remove_prefix(character.length);
    if (character.code_point < 0x10000) {
      wide += static_cast<wchar_t>(character.code_point);
    } else {
      wide += static_cast<wchar_t>(0xD800 + ((character.code_point - 0x10000) >> 10));
      wide += static_cast<wchar_t>(0xDC00 + ((character.code_point - 0x10000) & 0x3FF));
    }
  }
  std::string ansi = AnsiOfWide(wide);
  if (WideOfAnsi(ansi) != wide) return std::nullopt;
  return ansi;
}

}  // namespace discwright::host
