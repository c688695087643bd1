// Starting programs that are made for Windows.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace discwright::host {

// The command line that starts the Windows program at the core path `program` with one argument: `option` and, without
// a blank between, the core path `path` as that program spells it. On Windows nothing is quoted; elsewhere the command
// "wine" starts it. Nothing when the system has no such command.
std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option, std::string_view path);

}  // namespace discwright::host
