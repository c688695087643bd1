// Makes command lines that run batch files, which only the command interpreter (cmd.exe or command.com) can do. Pass a
// command line to RunnableLine, and its result to CreateProcess.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

// The native line with which CreateProcess can run the line `native`. This is `native` itself, or a line that starts
// the command interpreter when the program is a ".bat" file. The program is the shortest leading part that names a
// file, with or without ".exe".
std::string RunnableLine(std::string_view native);

}  // namespace discwright::host
