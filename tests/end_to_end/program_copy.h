// A copy of the built program folder. Every test builds in a copy of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/end_to_end/running_program.h"

namespace discwright::testing {

class ProgramCopy {
 public:
  // Makes `folder` and copies the programs and their data into it.
  explicit ProgramCopy(std::filesystem::path folder);

  const std::filesystem::path& folder() const { return folder_; }
  std::filesystem::path operator/(const std::filesystem::path& below) const { return folder_ / below; }

  // The command line of discwright-build with these arguments.
  std::vector<std::string> Command(const std::vector<std::string>& arguments) const;
  Outcome Build(const std::vector<std::string>& arguments, const Surroundings& surroundings = {}) const;

  // Replaces a program by a shell script. `lines` follow the "#!" line.
  void ReplaceProgram(const std::string& name, const std::string& lines) const;
  // Restores a replaced program, or adds the program with the window ("discwright"), which few tests need.
  void RestoreProgram(const std::string& name) const;

 private:
  std::filesystem::path folder_;
};

// The arguments that choose a folder of utilities and one of additional files.
std::vector<std::string> Utilities(const std::filesystem::path& folder);
std::vector<std::string> AdditionalFiles(const std::filesystem::path& folder);
std::vector<std::string> Output(const std::filesystem::path& image);

// Joins lists of arguments.
std::vector<std::string> Join(std::vector<std::string> first, const std::vector<std::string>& second,
                              const std::vector<std::string>& third = {}, const std::vector<std::string>& fourth = {},
                              const std::vector<std::string>& fifth = {});

// The files beside an image that a program made: temporary ones, and those whose names begin with the image's name.
std::vector<std::string> PartsOf(const std::filesystem::path& image);

// Whether neither the image nor a part of it exists.
bool NoImageAt(const std::filesystem::path& image);

// The lines of a text that contain `part`.
std::vector<std::string> LinesWith(const std::string& text, const std::string& part);

}  // namespace discwright::testing
