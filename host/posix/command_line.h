// Reading a command line the way the Windows process call does.
#pragma once

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

// The program is the shortest part of the line, ending before a blank or at the end (or standing between double
// quotes), that names an existing executable file as written or with ".exe" removed or added, or a ".bat", which
// /bin/sh runs. The other arguments are passed on as they are.
Command ParseCommandLine(std::string_view command_line);

// Splits arguments: blanks and tabs separate, double quotes hold together, "\" before a double quote makes it plain
// (2n backslashes and a quote are n and a quote that means something, 2n+1 are n and a plain quote).
std::vector<std::string> SplitArguments(std::string_view text);

}  // namespace discwright::host
