// Lists the root and the optical discs, and finds the home folder and the file manager, which the desktop's own command
// starts.
#include "host/desktop.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "host/names.h"
#include "host/posix/case_lookup.h"
#include "host/posix/find_program.h"
#include "host/posix/mounts.h"

namespace discwright::host {
namespace {

constexpr std::size_t kPasswordEntry = 1024;
constexpr std::size_t kLargestPasswordEntry = std::size_t{1} << 20U;

bool IsAbsolute(std::string_view native) { return native.starts_with('/'); }

// The user's native home folder in the system's list of users; empty when the list has none.
std::string HomeOfUser() {
  for (std::string buffer(kPasswordEntry, '\0'); buffer.size() <= kLargestPasswordEntry;
       buffer.resize(buffer.size() * 2)) {
    passwd entry{};
    passwd* found = nullptr;
    const int error = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    if (error == ERANGE) continue;
    return error == 0 && found != nullptr && found->pw_dir != nullptr ? found->pw_dir : "";
  }
  return {};
}

// The value of an environment variable if it is an absolute path, otherwise empty.
std::string AbsolutePathIn(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && IsAbsolute(value) ? value : "";
}

// The user's native home folder; empty when the system knows none.
std::string NativeHome() {
  std::string home = AbsolutePathIn("HOME");
  if (home.empty()) home = HomeOfUser();
  return IsAbsolute(home) ? home : "";
}

}  // namespace

std::vector<std::string> DriveRoots() { return {"\\"}; }

std::vector<std::string> OpticalDrives() {
  std::vector<std::string> drives = OpticalMountPoints("/proc/self/mounts");
  for (std::string& drive : drives) drive = PathFromNative(drive);
  return drives;
}

std::string HomeFolder() {
  const std::string home = NativeHome();
  return home.empty() ? "\\" : PathFromNative(home);
}

// The rules are those of the XDG Base Directory Specification, which also demands that a relative path is ignored.
std::string DataHome() {
  const std::string named = AbsolutePathIn("XDG_DATA_HOME");
  if (!named.empty()) return PathFromNative(named);
  const std::string home = NativeHome();
  return home.empty() ? std::string() : PathFromNative(home + "/.local/share");
}

std::string FileManagerLine(std::string_view folder) {
  const std::string native = PathToNative(folder.empty() ? HomeFolder() : folder);
  return InstalledProgramLine("xdg-open", {native}).value_or("");
}

}  // namespace discwright::host
