// Starts the Windows programs under Wine, for tests that run on Linux: WindowsProgram builds, RunWindows() runs one
// program.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/end_to_end/running_program.h"

namespace discwright::testing {

// Which Windows the programs find themselves on.
enum class Family { kNt, k98 };

// A path as the Windows programs call it: drive Z: is the whole file system here.
std::string WindowsPath(const std::filesystem::path& path);

// The command that runs a Windows program here.
std::vector<std::string> WindowsCommand(Family family, const std::vector<std::string>& command);

Outcome RunWindows(Family family, const std::vector<std::string>& command,
                   const std::vector<std::pair<std::string, std::string>>& environment = {});

// A command "wine" in `folder` that starts Windows programs as those of the NT family.
void MakeWineCommand(const std::filesystem::path& folder);

// The Windows program folder, copied to a folder of the test, which removes it.
class WindowsProgram {
 public:
  WindowsProgram(std::filesystem::path folder, Family family);

  const std::filesystem::path& folder() const { return folder_; }
  std::filesystem::path operator/(const std::filesystem::path& below) const { return folder_ / below; }
  Outcome Build(const std::vector<std::string>& arguments,
                const std::vector<std::pair<std::string, std::string>>& environment = {}) const;

 private:
  std::filesystem::path folder_;
  Family family_;
};

}  // namespace discwright::testing
