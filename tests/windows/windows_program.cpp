// Copies the Windows program folder, and starts the programs in the copy.
#include "tests/windows/windows_program.h"

#include <algorithm>
#include <string_view>

#include "tests/end_to_end/program_copy.h"
#include "tests/end_to_end/trees.h"

namespace discwright::testing {

namespace fs = std::filesystem;

std::string WindowsPath(const fs::path& path) {
  std::string windows = "Z:" + path.string();
  std::replace(windows.begin(), windows.end(), '/', '\\');
  return windows;
}

std::vector<std::string> WindowsCommand(Family family, const std::vector<std::string>& command) {
  const std::vector<std::string> wine = {WINE_SCRIPT, family == Family::kNt ? "nt" : "98"};
  return Join(wine, command);
}

Outcome RunWindows(Family family, const std::vector<std::string>& command,
                   const std::vector<std::pair<std::string, std::string>>& environment) {
  return RunProgram(WindowsCommand(family, command), {.working_folder = "/", .environment = environment});
}

void MakeWineCommand(const fs::path& folder) {
  const fs::path command = folder / "wine";
  WriteFile(command, "#!/bin/sh\nexec '" WINE_SCRIPT "' nt \"$@\"\n");
  fs::permissions(command, fs::perms::owner_all);
}

WindowsProgram::WindowsProgram(fs::path folder, Family family) : folder_(std::move(folder)), family_(family) {
  const fs::path built = WINDOWS_PROGRAM_FOLDER;
  fs::create_directories(folder_);
  // By name: the built folder may hold what a build by hand has left there.
  for (const char* name : {"discwright-build.exe", "CreateDsk.exe", "dfl.exe", "mkisofs.exe", "files"}) {
    fs::copy(built / name, folder_ / name, fs::copy_options::recursive);
  }
}

Outcome WindowsProgram::Build(const std::vector<std::string>& arguments,
                              const std::vector<std::pair<std::string, std::string>>& environment) const {
  return RunWindows(family_, Join({(folder_ / "discwright-build.exe").string()}, arguments), environment);
}

}  // namespace discwright::testing
