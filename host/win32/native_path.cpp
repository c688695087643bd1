// Translates separators and text.
#include "host/win32/native_path.h"

#include <algorithm>

#include "host/win32/ansi.h"

namespace discwright::host {

std::optional<std::string> NativePath(std::string_view path) {
  if (path.find_first_of(std::string_view("?*\0", 3)) != std::string_view::npos) return std::nullopt;
  // In UTF-8, so that no second byte of a double-byte character is taken for a separator.
  std::string backslashed(path);
  std::replace(backslashed.begin(), backslashed.end(), '/', '\\');
  return AnsiOfUtf8(backslashed);
}

std::optional<std::string> NativePattern(std::string_view folder, std::string_view pattern) {
  std::optional<std::string> native = NativePath(folder);
  const std::optional<std::string> wildcard = AnsiOfUtf8(pattern);
  if (!native || !wildcard) return std::nullopt;
  const bool needs_separator =
      !folder.empty() && !folder.ends_with('\\') && !folder.ends_with('/') && !folder.ends_with(':');
  if (needs_separator) native->append("\\");
  return native->append(*wildcard);
}

}  // namespace discwright::host
