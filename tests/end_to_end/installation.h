// Installs the built programs below a prefix, as `make install` does, and runs the installed ones.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/end_to_end/running_program.h"

namespace discwright::testing {

class Installation {
 public:
  // Installs all programs and files below `prefix`, or only those of one component of cmake/install.cmake.
  explicit Installation(std::filesystem::path prefix, const std::string& component = {});

  std::filesystem::path operator/(const std::filesystem::path& below) const { return prefix_ / below; }
  std::filesystem::path folder() const { return prefix_ / "lib/discwright"; }  // of the programs and their data

 private:
  std::filesystem::path prefix_;
};

// Runs `scripts/package.sh BUILD TARBALL` on the built programs.
Outcome Package(const std::filesystem::path& tarball, const Surroundings& surroundings = {});
// Runs `scripts/uninstall.sh PREFIX`.
Outcome Uninstall(const std::filesystem::path& prefix);

}  // namespace discwright::testing
