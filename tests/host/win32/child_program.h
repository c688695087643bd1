// The tests' own program started again, as a small program that does what a test needs of one.
#pragma once

#include <string>

namespace discwright::host::testing {

// The command line that starts it for one of these: "lines N" prints N lines; "mass N" prints N bytes "x"; "say TEXT"
// prints a word without a line end; "bytes" prints a line with an umlaut in the ANSI code page; "input" prints how many
// bytes standard input has; "console" prints whether there is a window; "wait FILE" waits for the file and returns 7;
// "ask FILE" prints "question" first; "start FILE" starts another that waits, prints its id and waits for it; "leave
// FILE" does the same without waiting; "noise FILE" leaves one that prints until it can no more, then makes the file;
// "late FILE" makes the file after 100 ms; "exit N" returns N; "crash" raises an exception.
std::string ChildProgram(const std::string& what);

}  // namespace discwright::host::testing
