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

// Everything in the file that no reader takes, in the order of its lines: sections, keys and lines that mean nothing,
// keys and sections that stand there again (the first counts), values that are not what their key takes. Keys that are
// missing are no problem. A file that cannot be read, or is in UTF-16, has one problem.
std::vector<SessionProblem> CheckSession(const std::string& file_name);

}  // namespace discwright::settings
