// Finds the file of a program: the one that a command line names, or the one that is installed in PATH. Call
// ParseCommandLine or InstalledProgramLine.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/status.h"

namespace discwright::host {

// The command to start: arguments[0] is the native path of an executable file.
struct Command {
  Status status;  // not ok: no program was found; the cause names it
  std::vector<std::string> arguments;
};

// Finds the program of a line and splits its arguments. The program is the shortest leading part of the line that names
// an existing executable file, as written or with ".exe" removed or added. It may also name a ".bat" file, which
// /bin/sh runs. The arguments after it are passed on unchanged.
Command ParseCommandLine(std::string_view command_line);

// The line, in the form that ParseCommandLine reads, that starts the first program `name` in the folders of PATH with
// exactly these arguments. Returns std::nullopt when no folder of PATH has the program.
std::optional<std::string> InstalledProgramLine(std::string_view name, const std::vector<std::string>& arguments);

}  // namespace discwright::host
