// Batch files, which only the command interpreter (cmd.exe or command.com) can run.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

// The native line that CreateProcess can run for `native`: the same, or one that starts the command interpreter when
// the program is a ".bat". The program is the shortest leading part that names a file, with or without ".exe".
std::string RunnableLine(std::string_view native);

}  // namespace discwright::host
