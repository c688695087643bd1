// Command lines that the system's shell has to run.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

// The native command line that runs `native`: as it is, or by way of the shell when its program is a ".bat". The
// program is the shortest leading part that names a file, with or without ".exe".
std::string RunnableCommandLine(std::string_view native);

}  // namespace discwright::host
