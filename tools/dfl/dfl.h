// The duplicate file linker as a function: everything but main().
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tools/dfl/linking.h"

namespace discwright::tools::dfl {

inline constexpr int kExitDone = 0;      // also where the file system has no hard links
inline constexpr int kExitProblems = 1;  // some files were left alone; they are named on the error output
inline constexpr int kExitUsage = 2;

struct Machine {
  unsigned processors = 0;  // to keep busy; 0: all of the machine's
  LinkCalls calls;
};

// Runs with the arguments that follow the program's name. The lines on `output` are read by the mastering's monitor.
int RunDfl(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors,
           const Machine& machine = {});

}  // namespace discwright::tools::dfl
