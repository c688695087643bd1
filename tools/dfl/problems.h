// What went wrong with single files, collected from all threads and told in the order of the tree.
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
  // `place` is where the file stands in the tree; `what` happened to it ("cannot be read"). Thread-safe.
  void Add(std::size_t place, std::string_view path, std::string_view what, const host::Status& status = {});

  bool empty() const { return problems_.empty(); }
  // One line each.
  void Print(std::ostream& output);

 private:
  struct Problem {
    std::size_t place;
    std::string text;
  };
  host::Mutex mutex_;
  std::vector<Problem> problems_;
};

// A path as it is shown on one line of the console.
std::string Shown(std::string_view path);

}  // namespace discwright::tools::dfl
