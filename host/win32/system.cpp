// Facts about the machine and the running program.
#include "host/system.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "host/desktop.h"
#include "host/native_text.h"
#include "host/win32/native_path.h"
#include "host/win32/owned_handle.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

constexpr std::size_t kShortPathBuffer = 300;

// A drive without a disc is a failure like any other; the system would ask the user to put one in.
const UINT kFormerErrorMode = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);

// What a call has put into a buffer; nothing when it failed or there was not enough room.
template <std::size_t size>
std::string Filled(const std::array<char, size>& buffer, DWORD length) {
  return length < size ? TextOfCodePage({buffer.data(), length}) : std::string();
}

}  // namespace

std::string ProgramFolder() {
  std::array<char, MAX_PATH> path{};
  const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
  const std::string program = Filled(path, length);
  return program.empty() ? CurrentFolder() : program.substr(0, program.rfind('\\'));
}

std::string CurrentFolder() {
  std::array<char, MAX_PATH> path{};
  return AbsolutePath(Filled(path, GetCurrentDirectoryA(static_cast<DWORD>(path.size()), path.data())));
}

std::shared_ptr<void> ClaimFolder(std::string_view folder) {
  std::string name = "Discwright " + AnsiPath(FoldCase(AbsolutePath(folder))).native;
  std::replace(name.begin(), name.end(), '\\', '/');  // which no name of a mutex can have
  SetLastError(ERROR_SUCCESS);
  OwnedHandle mutex(CreateMutexA(nullptr, FALSE, name.c_str()));
  const DWORD error = GetLastError();
  // That of another user is there but does not let itself be opened.
  if (error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED) return nullptr;
  return std::make_shared<OwnedHandle>(std::move(mutex));
}

int PlatformId() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof(version);
  return GetVersionExA(&version) != 0 ? static_cast<int>(version.dwPlatformId) : VER_PLATFORM_WIN32_NT;
}

bool IsNtFamily() {
  static const bool is_nt_family = PlatformId() == VER_PLATFORM_WIN32_NT;
  return is_nt_family;
}

std::vector<std::string> OpticalDrives() {
  std::vector<std::string> drives;
  for (const std::string& root : DriveRoots()) {
    if (GetDriveTypeA(root.c_str()) == DRIVE_CDROM) drives.push_back(root.substr(0, 2));
  }
  return drives;
}

std::string ShortPath(std::string_view path) {
  const AnsiPath ansi(path);
  if (!ansi.status.ok()) return {};
  std::array<char, kShortPathBuffer> shortened{};
  return Filled(shortened, GetShortPathNameA(ansi.c_str(), shortened.data(), static_cast<DWORD>(shortened.size())));
}

Date Today() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  std::array<char, 64> weekday{};
  const int size =
      GetDateFormatA(LOCALE_USER_DEFAULT, 0, &now, "ddd", weekday.data(), static_cast<int>(weekday.size()));
  const std::string name =
      size > 1 ? TextOfCodePage({weekday.data(), static_cast<std::size_t>(size) - 1}) : std::string();
  return {now.wYear, now.wMonth, now.wDay, name};
}

std::string PathFromNative(std::string_view native) { return AbsolutePath(native); }

std::string PathToNative(std::string_view path) { return AbsolutePath(path); }

std::string NameOnDisc(std::string_view name) { return std::string(name); }

}  // namespace discwright::host
