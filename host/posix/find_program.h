// Finding the file of a program: the one that a command line names, or the one that is installed in PATH.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/status.h"

namespace discwright::host {

// What to start: arguments[0] is the native path of an executable file.
struct Command {
  Status status;  // not ok: no program was found; the cause names it
  std::vector<std::string> arguments;
};

// The program is the shortest leading part of the line that names an existing executable file, as written or with
// ".exe" removed or added, or a ".bat", which /bin/sh runs. The arguments that follow are passed on as they are.
Command ParseCommandLine(std::string_view command_line);

// The line, as ParseCommandLine reads it, that starts the first program `name` in the folders of PATH with exactly
// these arguments. Nothing when there is none.
std::optional<std::string> InstalledProgramLine(std::string_view name, const std::vector<std::string>& arguments);

}  // namespace discwright::host
