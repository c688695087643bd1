// Collects what goes wrong with single files, on all threads, and prints it in the order of the tree. A problem does
// not stop the run.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/status.h"
#include "host/threads.h"

namespace discwright::tools::dfl {

class Problems {
 public:
  // `place` is the file's index in the tree; `what` continues the sentence after the path ("cannot be read"). May be
  // called from several threads at once.
  void Add(std::size_t place, std::string_view path, std::string_view what, const host::Status& status = {});

  bool empty() const { return problems_.empty(); }
  // Prints one line for each problem.
  void Print(std::ostream& output);

 private:
  struct Problem {
    std::size_t place;
    std::string text;
  };
  host::Mutex mutex_;
  std::vector<Problem> problems_;
};

// Returns a path as messages show it: with the host's separators, and with control characters as "\x0A", so that it
// fits on one line.
std::string Shown(std::string_view path);

}  // namespace discwright::tools::dfl
