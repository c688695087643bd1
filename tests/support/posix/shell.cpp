// Runs lines in the shell of this system.
#include "tests/support/shell.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>

namespace discwright::testing {

bool HasShell() { return true; }

ShellEnd RunShell(const std::string& line) {
  ShellEnd end;
  FILE* output = popen(("{ " + line + "\n} 2>&1").c_str(), "re");
  if (output == nullptr) return end;
  std::array<char, 4096> piece{};
  while (const std::size_t count = fread(piece.data(), 1, piece.size(), output)) end.output.append(piece.data(), count);
  const int status = pclose(output);
  if (WIFEXITED(status)) end.exit_code = WEXITSTATUS(status);
  return end;
}

std::string ShellPath(const std::filesystem::path& path) { return Quote(path.string()); }
std::string ShellProgram(const std::filesystem::path& program) { return Quote(program.string()); }

}  // namespace discwright::testing
