// Translates separators and text, and takes paths apart.
#include "host/win32/native_path.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "host/native_text.h"
#include "host/win32/errors.h"

namespace discwright::host {
namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::size_t kDriveRoot = 3;  // "C:\"

std::string Backslashed(std::string_view path) {
  // In UTF-8, so that no second byte of a double-byte character is taken for a separator.
  std::string backslashed(path);
  std::replace(backslashed.begin(), backslashed.end(), '/', '\\');
  return backslashed;
}

// The system's calls take at most so many bytes, the NUL at the end included.
Status WhyNotAsked(const std::string& native) {
  if (native.empty()) return StatusOf(ERROR_PATH_NOT_FOUND);
  // Some calls take these, too, for wildcards.
  if (native.find_first_of("<>\"|") != native.npos) return StatusOf(ERROR_INVALID_NAME);
  return native.size() < MAX_PATH ? Status::Success() : StatusOf(ERROR_FILENAME_EXCED_RANGE);
}

std::size_t RootLength(std::string_view path) {
  return path.size() >= kDriveRoot && path[1] == ':' && path[2] == '\\' ? kDriveRoot : 1;
}

// Some calls refuse a separator at the end, and a root needs its own.
std::string WithoutLastSeparators(std::string path) {
  while (path.size() > RootLength(path) && path.ends_with('\\')) path.pop_back();
  return path;
}

}  // namespace

std::optional<std::string> NativePath(std::string_view path) {
  if (path.find_first_of(std::string_view("?*\0", 3)) != std::string_view::npos) return std::nullopt;
  return CodePageBytes(Backslashed(path));
}

DoorPath::DoorPath(std::string_view path) : core(WithoutLastSeparators(Backslashed(path))) {
  std::optional<std::string> translated = NativePath(core);
  status = translated ? WhyNotAsked(*translated) : NameNotInCodePage();
  if (status.ok()) native = std::move(*translated);
}

std::string_view NameOf(std::string_view path) { return path.substr(path.find_last_of("\\/:") + 1); }

std::string SiblingOf(std::string_view path, std::string_view name) {
  return std::string(path.substr(0, path.size() - NameOf(path).size())).append(name);
}

std::string InFolder(std::string_view folder, std::string_view name) {
  std::string path(folder);
  const bool is_drive_alone = path.ends_with(':');
  if (!path.empty() && !is_drive_alone && kSeparators.find(path.back()) == kSeparators.npos) path += '\\';
  return path.append(name);
}

std::string AbsolutePath(std::string_view path) {
  std::string absolute = Backslashed(path);
  const std::optional<std::string> native = CodePageBytes(absolute);
  std::array<char, MAX_PATH> full{};
  char* name = nullptr;
  const DWORD length = !native || native->empty() || native->find('\0') != native->npos
                           ? 0
                           : GetFullPathNameA(native->c_str(), static_cast<DWORD>(full.size()), full.data(), &name);
  if (length > 0 && length < full.size()) absolute = TextOfCodePage({full.data(), length});
  return WithoutLastSeparators(std::move(absolute));
}

std::string WindowsFolder() {
  std::array<char, MAX_PATH> folder{};
  const UINT length = GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
  return length < folder.size() ? TextOfCodePage({folder.data(), length}) : std::string();
}

std::string ParentFolder(std::string_view absolute) {
  const std::size_t separator = absolute.rfind('\\');
  if (separator == absolute.npos) return std::string(absolute);
  return std::string(absolute.substr(0, std::max(separator, RootLength(absolute))));
}

bool IsDevicePath(std::string_view path) {
  const std::string backslashed = Backslashed(path);
  if (backslashed.starts_with("\\\\.\\")) return true;
  std::string name(NameOf(backslashed));
  name.erase(std::min(name.find('.'), name.size()));
  name.erase(name.find_last_not_of(' ') + 1);
  for (char& letter : name) letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  static constexpr std::array<std::string_view, 7> kDevices = {"CON",    "PRN",     "AUX",   "NUL",
                                                               "CONIN$", "CONOUT$", "CLOCK$"};
  if (std::find(kDevices.begin(), kDevices.end(), name) != kDevices.end()) return true;
  const bool is_port = name.size() == 4 && (name.starts_with("COM") || name.starts_with("LPT"));
  return is_port && name[3] >= '1' && name[3] <= '9';
}

}  // namespace discwright::host
