// Tells facts about the machine and the running program.
#include "host/system.h"
#include "host/names.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "host/native_text.h"
#include "host/win32/native_path.h"
#include "host/win32/native_text.h"
#include "host/win32/owned_handle.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

// A drive without a disc is a failure like any other. By default, the system would ask the user to insert a disc.
const UINT kFormerErrorMode = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);

std::string FindProgramFolder() {
  std::array<char, MAX_PATH> path{};
  const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
  const std::string program = TextOfBuffer(path, length);
  return program.substr(0, program.rfind('\\'));
}

std::string& TheProgramFolder() {
  static std::string folder = FindProgramFolder();
  return folder;
}

}  // namespace

std::string ProgramFolder() { return TheProgramFolder(); }

void UseProgramFolder(std::string_view folder) { TheProgramFolder() = folder; }

std::string CurrentFolder() {
  std::array<char, MAX_PATH> path{};
  return AbsolutePath(TextOfBuffer(path, GetCurrentDirectoryA(static_cast<DWORD>(path.size()), path.data())));
}

std::shared_ptr<void> ClaimFolder(std::string_view folder) {
  std::string name = "Discwright " + AnsiPath(FoldCase(AbsolutePath(folder))).native;
  std::replace(name.begin(), name.end(), '\\', '/');  // the name of a mutex must not have a backslash
  SetLastError(ERROR_SUCCESS);
  OwnedHandle mutex(CreateMutexA(nullptr, FALSE, name.c_str()));
  const DWORD error = GetLastError();
  // A mutex of another user exists, too, but cannot be opened.
  if (error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED) return nullptr;
  return std::make_shared<OwnedHandle>(std::move(mutex));
}

void SetUpSignals() {}  // Windows needs none of this

int PlatformId() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof(version);
  return GetVersionExA(&version) != 0 ? static_cast<int>(version.dwPlatformId) : VER_PLATFORM_WIN32_NT;
}

bool IsNtFamily() {
  static const bool is_nt_family = PlatformId() == VER_PLATFORM_WIN32_NT;
  return is_nt_family;
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

}  // namespace discwright::host
