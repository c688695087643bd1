// Linux programs that look at what ours have made, and ours started as they are: lines for a shell.
#pragma once

#include <filesystem>
#include <string>

namespace discwright::testing {

// False where no line can be run: on a real Windows. Under Wine it is the shell of the Linux below.
bool HasShell();

struct ShellEnd {
  int exit_code = -1;  // -1: ended by a signal
  std::string output;  // standard output and standard error
};
ShellEnd RunShell(const std::string& line);

// One word of a line. No test has a single quote in a path.
inline std::string Quote(const std::string& text) { return "'" + text + "'"; }
// A path as the shell's own programs take it, as one word. Its folder must be there.
std::string ShellPath(const std::filesystem::path& path);
// What starts one of our programs; its arguments are paths of its own system.
std::string ShellProgram(const std::filesystem::path& program);

}  // namespace discwright::testing
