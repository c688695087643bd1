// Performs a whole run of the duplicate file linker. main() calls RunDfl with the command line and returns its exit
// code.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tools/dfl/linking.h"

namespace discwright::tools::dfl {

inline constexpr int kExitDone = 0;      // also when the file system has no hard links
inline constexpr int kExitProblems = 1;  // some files could not be read or linked; the error output names them
inline constexpr int kExitUsage = 2;     // wrong command line

// What a run takes from the machine. Tests give values of their own.
struct Machine {
  unsigned processors = 0;  // number of processors to use; 0: all
  LinkCalls calls;
};

// Runs the linker and returns its exit code. `arguments` do not include the program's name. The build's progress
// monitor reads the lines on `output`, so their words must not change.
int RunDfl(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors,
           const Machine& machine = {});

}  // namespace discwright::tools::dfl
