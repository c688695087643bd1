// The drives, the folder of Windows and its file manager.
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

std::string HomeFolder() { return {}; }

std::string FileManagerLine(std::string_view folder) {
  return base::InFolder(WindowsFolder(), "explorer.exe ").append(folder);
}

}  // namespace discwright::host
