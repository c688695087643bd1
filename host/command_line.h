// Splits command lines by the rules of Windows, on every system. LeadingParts finds the program of a line, and
// SplitArguments splits the text after it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// One way to split a line into a program and its arguments.
struct LeadingPart {
  std::string_view program;    // without quotes
  std::string_view arguments;  // everything after the program, including the blanks before it
};

// All ways to split a line, with the shortest program first. A program ends before a blank or a tab, or at the end of
// the line. A line that begins with a program in quotes can be split in one way only. Blanks and tabs before the
// program are skipped.
std::vector<LeadingPart> LeadingParts(std::string_view line);

// Splits arguments at blanks and tabs, except between double quotes. Backslashes have a meaning only before a double
// quote: 2n of them and a quote stand for n backslashes, and the quote begins or ends quoted text; 2n+1 of them and a
// quote stand for n backslashes and a plain quote.
std::vector<std::string> SplitArguments(std::string_view text);

}  // namespace discwright::host
