// Links to folders, for tests on Windows and under Wine.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "host/win32/windows_version.h"
#include "tests/host/temp_folder.h"

namespace discwright::host::testing {

// The path as the system below Wine spells it; empty on Windows itself.
inline std::string UnixPath(const std::filesystem::path& path) {
  using Call = char* CDECL(const wchar_t*);
  Call* const unix_name = NewerCall<Call>("kernel32.dll", "wine_get_unix_file_name");
  const char* const name = unix_name != nullptr ? unix_name(path.c_str()) : nullptr;
  return name != nullptr ? name : "";
}

// Runs a program of the system below Wine to its end: without processes of Wine in between, which now and then do not
// end.
inline void RunUnix(std::vector<std::string> arguments) {
  using Call = long CDECL(char* const*, int);
  Call* const spawn = NewerCall<Call>("ntdll.dll", "__wine_unix_spawnvp");
  std::vector<char*> list;
  for (std::string& argument : arguments) list.push_back(argument.data());
  list.push_back(nullptr);
  constexpr int kWait = 1;
  if (spawn != nullptr) spawn(list.data(), kWait);
}

// Runs a line of the system's shell to its end, without a window.
inline void RunLine(const std::string& line) {
  std::string command = "cmd /c " + line;
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                     &process) == 0)
    return;
  WaitForSingleObject(process.hProcess, INFINITE);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

// A junction, or under Wine a symbolic link, which Wine itself can neither make nor remove.
class FolderLink {
 public:
  FolderLink(const TempFolder& folder, std::string_view target, std::string_view name)
      : path_(folder.Path(name)), unix_path_(UnixPath(path_.parent_path())) {
    if (unix_path_.empty()) {
      RunLine("mklink /j \"" + folder.Core(name) + "\" \"" + folder.Core(target) + "\"");
    } else {
      unix_path_ += "/" + TextOf(path_.filename());
      RunUnix({"/bin/ln", "-s", UnixPath(folder.Path(target)), unix_path_});
    }
  }
  FolderLink(const FolderLink&) = delete;
  FolderLink& operator=(const FolderLink&) = delete;
  ~FolderLink() {
    if (unix_path_.empty()) {
      RemoveDirectoryW(path_.c_str());
    } else {
      RunUnix({"/bin/rm", unix_path_});
    }
  }
  bool made() const { return std::filesystem::exists(path_); }
  bool is_of_wine() const { return !unix_path_.empty(); }

 private:
  std::filesystem::path path_;
  std::string unix_path_;
};

}  // namespace discwright::host::testing
