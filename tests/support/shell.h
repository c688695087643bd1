// Runs a line in the shell of Linux: programs of Linux that read our images, and our own programs. Works under Wine,
// too.
#pragma once

#include <filesystem>
#include <string>

namespace discwright::testing {

// Whether there is a shell. A real Windows has none; under Wine it is the shell of the Linux that runs Wine.
bool HasShell();

struct ShellEnd {
  int exit_code = -1;  // -1: ended by a signal
  std::string output;  // standard output and standard error
};
ShellEnd RunShell(const std::string& line);

// Quotes a word. The paths of tests have no single quotes.
inline std::string Quote(const std::string& text) { return "'" + text + "'"; }
// A path as programs of Linux take it, as one quoted word. Its folder must exist.
std::string ShellPath(const std::filesystem::path& path);
// The words that start one of our programs. The program's arguments are paths of its own system.
std::string ShellProgram(const std::filesystem::path& program);

}  // namespace discwright::testing
