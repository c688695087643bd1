// Checks a session file that was written by hand: CheckSession reports every line that ReadSession would ignore or
// misread.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace discwright::settings {

struct SessionProblem {
  std::size_t line = 0;  // counted from 1; 0: the problem concerns the whole file
  std::string cause;

  std::string Sentence() const;  // the cause, with "line 7: " before it if there is a line
};

// The problems of a session file in the order of its lines: unknown sections and keys; lines that are neither; sections
// and keys that appear again (only the first is read); values that the key does not accept. A missing key is no
// problem. For a file in UTF-16, or one that cannot be read, the result is this one problem.
std::vector<SessionProblem> CheckSession(const std::string& file_name);

}  // namespace discwright::settings
