// Cuts paths in UTF-8, where no second byte of a character looks like a separator.
#include "base/paths.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace discwright::base {
namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::size_t kDriveRoot = 3;  // "C:\"

}  // namespace

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

std::size_t RootLength(std::string_view path) {
  return path.size() >= kDriveRoot && path[1] == ':' && path[2] == '\\' ? kDriveRoot : 1;
}

std::string ParentFolder(std::string_view absolute) {
  const std::size_t separator = absolute.rfind('\\');
  if (separator == absolute.npos) return std::string(absolute);
  return std::string(absolute.substr(0, std::max(separator, RootLength(absolute))));
}

bool IsDevicePath(std::string_view path) {
  std::string backslashed(path);
  std::replace(backslashed.begin(), backslashed.end(), '/', '\\');
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

}  // namespace discwright::base
