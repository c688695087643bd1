// The code page and UTF-8.
#include "host/text_encoding.h"

#include <algorithm>
#include <optional>

#include "host/code_page.h"
#include "host/utf8.h"

namespace discwright::host {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::string EncodeText(std::string_view text) {
  // Bytes that a reader would take for UTF-8 by chance ("Ã¤" is "ä" there) do not come back as they were.
  const std::optional<std::string> bytes = CodePageBytes(text);
  if (bytes && DecodeText(*bytes) == text) return *bytes;
  return std::string(kByteOrderMark).append(text);
}

bool HasUtf8Mark(std::string_view bytes) { return bytes.starts_with(kByteOrderMark); }

bool IsUtf8File(std::string_view bytes) {
  const auto is_ascii = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
  return HasUtf8Mark(bytes) || (!std::ranges::all_of(bytes, is_ascii) && IsValidUtf8(bytes));
}

bool IsUtf16File(std::string_view bytes) { return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"); }

std::string DecodeText(std::string_view bytes) {
  if (!IsUtf8File(bytes)) return TextOfCodePage(bytes);
  if (HasUtf8Mark(bytes)) bytes.remove_prefix(kByteOrderMark.size());
  return std::string(bytes);
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t length = 0;
  for (; count > 0 && length < text.size(); --count) {
    length += std::max<std::size_t>(FirstUtf8Character(text.substr(length)).length, 1);
  }
  return text.substr(0, length);
}

}  // namespace discwright::host
