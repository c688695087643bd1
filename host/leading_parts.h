// Which parts of a command line may be the program, as the Windows process call reads it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace discwright::host {

struct LeadingPart {
  std::string_view program;
  std::size_t length = 0;  // with its quotes
};

// Blanks and tabs.
std::string_view WithoutLeadingBlanks(std::string_view text);

// The leading parts of a line without leading blanks that may be the program, shortest first: each ends before a blank
// or at the end; with quotes there is only one.
std::vector<LeadingPart> LeadingParts(std::string_view line);

}  // namespace discwright::host
