// Copies the program folder, and runs builds in the copy.
#include "tests/end_to_end/program_copy.h"

#include <sstream>
#include <utility>

#include "tests/end_to_end/trees.h"

namespace discwright::testing {

namespace {

void MakeProgram(const fs::path& file, const std::string& lines) {
  fs::remove(file);  // removed first, because it may be a link to the real one
  WriteFile(file, "#!/bin/sh\n" + lines);
  fs::permissions(file, fs::perms::owner_all);
}

}  // namespace

ProgramCopy::ProgramCopy(fs::path folder) : folder_(std::move(folder)) {
  const fs::path built = PROGRAM_FOLDER;
  fs::create_directories(folder_);
  // Copies a list of names, because a build by hand may have left other files in the built folder.
  for (const char* name : {"discwright-build", "CreateDsk", "dfl", "mkisofs", "files", "help"}) {
    fs::copy(built / name, folder_ / name, fs::copy_options::recursive);
  }
}

std::vector<std::string> ProgramCopy::Command(const std::vector<std::string>& arguments) const {
  return Join({(folder_ / "discwright-build").string()}, arguments);
}

Outcome ProgramCopy::Build(const std::vector<std::string>& arguments, const Surroundings& surroundings) const {
  return RunProgram(Command(arguments), surroundings);
}

void ProgramCopy::ReplaceProgram(const std::string& name, const std::string& lines) const {
  MakeProgram(folder_ / name, lines);
}

void ProgramCopy::RestoreProgram(const std::string& name) const {
  fs::copy_file(fs::path(PROGRAM_FOLDER) / name, folder_ / name, fs::copy_options::overwrite_existing);
}

std::vector<std::string> Utilities(const fs::path& folder) {
  return {"--set", "ChkVexaUtils=1", "--set", "TxtUtils_Loc=" + folder.string()};
}

std::vector<std::string> AdditionalFiles(const fs::path& folder) {
  return {"--set", "ChkAddFiles=1", "--set", "TxtAddFiles_Loc=" + folder.string()};
}

std::vector<std::string> Output(const fs::path& image) { return {"--output", image.string()}; }

std::vector<std::string> Join(std::vector<std::string> first, const std::vector<std::string>& second,
                              const std::vector<std::string>& third, const std::vector<std::string>& fourth,
                              const std::vector<std::string>& fifth) {
  for (const auto* list : {&second, &third, &fourth, &fifth}) first.insert(first.end(), list->begin(), list->end());
  return first;
}

std::vector<std::string> PartsOf(const fs::path& image) {
  std::vector<std::string> parts;
  for (const fs::directory_entry& entry : fs::directory_iterator(image.parent_path())) {
    const std::string name = entry.path().filename().string();
    const bool is_of_a_program = name.starts_with(image.filename().string()) || name.starts_with(".discwright-");
    if (entry.path() != image && is_of_a_program) parts.push_back(name);
  }
  return parts;
}

bool NoImageAt(const fs::path& image) { return !fs::exists(fs::symlink_status(image)) && PartsOf(image).empty(); }

std::vector<std::string> LinesWith(const std::string& text, const std::string& part) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.find(part) != std::string::npos) lines.push_back(line);
  }
  return lines;
}

}  // namespace discwright::testing
