// Starts programs that are made for Windows by the command "wine", where it is installed.
#include "host/windows_programs.h"

#include <algorithm>

#include "host/posix/case_lookup.h"
#include "host/posix/installed_program.h"

namespace discwright::host {
namespace {

// The path of a program that the user has put in quotes, as on Windows, where they go to the system with the line.
std::string_view WithoutQuotes(std::string_view program) {
  const bool is_quoted = program.size() >= 2 && program.front() == '"' && program.back() == '"';
  return is_quoted ? program.substr(1, program.size() - 2) : program;
}

// Drive Z: of Wine is the whole file system, unless the user has changed that.
std::string PathUnderWine(std::string native) {
  std::replace(native.begin(), native.end(), '/', '\\');
  return "Z:" + native;
}

}  // namespace

std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option,
                                              std::string_view path) {
  return InstalledProgramLine(
      "wine", {RealPath(WithoutQuotes(program)), std::string(option).append(PathUnderWine(RealPath(path)))});
}

}  // namespace discwright::host
