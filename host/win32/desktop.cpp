// Lists the drives, and writes the line that starts the file manager of Windows.
#include "host/desktop.h"

#include <windows.h>

#include <array>

#include "base/paths.h"
#include "host/win32/native_path.h"

namespace discwright::host {
namespace {

constexpr std::size_t kDriveBuffer = 255;

}  // namespace

std::vector<std::string> DriveRoots() {
  std::array<char, kDriveBuffer> list{};
  std::vector<std::string> roots;
  if (GetLogicalDriveStringsA(static_cast<DWORD>(list.size()), list.data()) >= list.size()) return roots;
  for (const char* root = list.data(); *root != '\0'; root += roots.back().size() + 1) roots.emplace_back(root);
  return roots;
}

std::vector<std::string> OpticalDrives() {
  std::vector<std::string> drives;
  for (const std::string& root : DriveRoots()) {
    if (GetDriveTypeA(root.c_str()) == DRIVE_CDROM) drives.push_back(root.substr(0, 2));
  }
  return drives;
}

std::string HomeFolder() { return {}; }

std::string DataHome() { return {}; }

std::string FileManagerLine(std::string_view folder) {
  return base::InFolder(WindowsFolder(), "explorer.exe ").append(folder);
}

}  // namespace discwright::host
