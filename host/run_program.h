// Runs a whole program and prints a message for every failure that nothing else handles. Every main() calls RunProgram:
//
//   int main(int argc, char** argv) {
//     return host::RunProgram("dfl", [&] { return Run(host::Arguments(argc, argv)); });
//   }
#pragma once

#include <functional>
#include <string_view>

namespace discwright::host {

inline constexpr int kProgramFailed = 1;

// Calls `program` and returns its exit code. When memory or threads run out, everything that `program` holds is
// destroyed, which removes unfinished files. Then a sentence that begins with `name` is printed on standard error, and
// the exit code is kProgramFailed. When a file may not grow, only the call that writes to it fails.
int RunProgram(std::string_view name, const std::function<int()>& program);

}  // namespace discwright::host
