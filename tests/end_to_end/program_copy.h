// A copy of the built program folder: every test builds in one of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/end_to_end/running_program.h"

namespace discwright::testing {

class ProgramCopy {
 public:
  // Copies the programs and their data to `folder`, which is made.
  explicit ProgramCopy(std::filesystem::path folder);

  const std::filesystem::path& folder() const { return folder_; }
  std::filesystem::path operator/(const std::filesystem::path& below) const { return folder_ / below; }

  // The command that builds with these arguments.
  std::vector<std::string> Command(const std::vector<std::string>& arguments) const;
  Outcome Build(const std::vector<std::string>& arguments, const Surroundings& surroundings = {}) const;

  // Puts a shell script in the place of one of the programs; `lines` come after the "#!" line.
  void ReplaceProgram(const std::string& name, const std::string& lines) const;
  // Puts the built program back.
  void RestoreProgram(const std::string& name) const;

 private:
  std::filesystem::path folder_;
};

// The arguments that choose a utilities folder and an additional folder.
std::vector<std::string> Utilities(const std::filesystem::path& folder);
std::vector<std::string> AdditionalFiles(const std::filesystem::path& folder);
std::vector<std::string> Output(const std::filesystem::path& image);

// Lists of arguments one after the other.
std::vector<std::string> Join(std::vector<std::string> first, const std::vector<std::string>& second,
                              const std::vector<std::string>& third = {}, const std::vector<std::string>& fourth = {},
                              const std::vector<std::string>& fifth = {});

// What stands beside an image under its name with something after it: parts of an image.
std::vector<std::string> PartsOf(const std::filesystem::path& image);

// Whether nothing of an image stands at its place: neither itself nor a part of it.
bool NoImageAt(const std::filesystem::path& image);

// The lines of a text that contain `part`.
std::vector<std::string> LinesWith(const std::string& text, const std::string& part);

}  // namespace discwright::testing
