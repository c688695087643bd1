// Translates the separators and the text of paths for the system's calls, and makes paths absolute.
#include "host/win32/native_path.h"

#include <algorithm>
#include <array>

#include "base/paths.h"
#include "host/win32/errors.h"
#include "host/win32/native_text.h"

namespace discwright::host {
namespace {

std::string Backslashed(std::string_view path) {
  // The path is still in UTF-8 here, so that no second byte of a double-byte character is taken for a separator.
  std::string backslashed(path);
  std::replace(backslashed.begin(), backslashed.end(), '/', '\\');
  return backslashed;
}

// The system's calls take at most MAX_PATH bytes, including the NUL at the end.
Status WhyNotAsked(const std::string& native) {
  if (native.empty()) return StatusOf(ERROR_PATH_NOT_FOUND);
  // Some calls also take these characters for wildcards.
  if (native.find_first_of("<>\"|") != native.npos) return StatusOf(ERROR_INVALID_NAME);
  return native.size() < MAX_PATH ? Status::Success() : StatusOf(ERROR_FILENAME_EXCED_RANGE);
}

// Some calls refuse a separator at the end of a path, but a root needs its own.
std::string WithoutLastSeparators(std::string path) {
  while (path.size() > base::RootLength(path) && path.ends_with('\\')) path.pop_back();
  return path;
}

}  // namespace

std::optional<std::string> NativePath(std::string_view path) {
  if (path.find_first_of(std::string_view("?*\0", 3)) != std::string_view::npos) return std::nullopt;
  return CodePageBytes(Backslashed(path));
}

AnsiPath::AnsiPath(std::string_view path) : core(WithoutLastSeparators(Backslashed(path))) {
  std::optional<std::string> translated = NativePath(core);
  status = translated ? WhyNotAsked(*translated) : NameNotInCodePage();
  if (status.ok()) native = std::move(*translated);
}

std::string AbsolutePath(std::string_view path) {
  std::string absolute = Backslashed(path);
  const std::optional<std::string> native = CodePageBytes(absolute);
  std::array<char, MAX_PATH> full{};
  char* name = nullptr;
  const DWORD length = !native || native->empty() || native->find('\0') != native->npos
                           ? 0
                           : GetFullPathNameA(native->c_str(), static_cast<DWORD>(full.size()), full.data(), &name);
  if (std::string text = TextOfBuffer(full, length); !text.empty()) absolute = std::move(text);
  return WithoutLastSeparators(std::move(absolute));
}

std::string WindowsFolder() {
  std::array<char, MAX_PATH> folder{};
  const UINT length = GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
  return TextOfBuffer(folder, length);
}

}  // namespace discwright::host
