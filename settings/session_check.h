// A strict reading of a session file that was written by hand: it tells every line that the reader would pass over.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace discwright::settings {

struct SessionProblem {
  std::size_t line = 0;  // 1-based; 0: the whole file
  std::string cause;

  std::string Sentence() const;  // "line 7: ", if there is a line, and the cause
};

// The problems of a session file in the order of its lines: unknown sections and keys, lines that are neither, sections
// and keys that stand there a second time (the reader takes the first), values that their key does not take. A missing
// key is no problem. A file that cannot be read, or is in UTF-16, has one problem.
std::vector<SessionProblem> CheckSession(const std::string& file_name);

}  // namespace discwright::settings
