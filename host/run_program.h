// The frame of every program: main() calls RunProgram, so that no failure ends a program without a sentence.
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
// the exit code is kProgramFailed. A file that may not grow is a failure of the call that writes to it.
int RunProgram(std::string_view name, const std::function<int()>& program);

}  // namespace discwright::host
