// Taking command lines apart by the rules of Windows, which hold on every system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// One way to divide a line into a program and its arguments.
struct LeadingPart {
  std::string_view program;    // without quotes
  std::string_view arguments;  // all that follows the program, with the blanks before it
};

// All ways, shortest program first: a program ends before a blank or at the end of the line. A program in quotes gives
// one way only. Blanks (and tabs) before the program are skipped.
std::vector<LeadingPart> LeadingParts(std::string_view line);

// Splits arguments: blanks and tabs separate, double quotes hold together, "\" before a double quote makes it plain
// (2n backslashes and a quote are n and a quote that means something, 2n+1 are n and a plain quote).
std::vector<std::string> SplitArguments(std::string_view text);

}  // namespace discwright::host
