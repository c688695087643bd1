// The small programs that tests of launched programs start, and what these tests need of each system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/host/temp_folder.h"

namespace discwright::host::testing {

// The command line that starts a small program for one of these: "lines N" prints N lines; "mass N" prints N bytes "x";
// "say TEXT" prints a word without a line end; "input" prints how many bytes standard input has; "wait FILE" waits for
// the file and returns 7; "ask FILE" prints "question" first; "close FILE" closes its output first; "start FILE" starts
// another that waits, prints its id and waits for it; "leave FILE" does the same without waiting; "noise FILE" leaves
// one that prints until it can no more, then makes the file; "late FILE" makes the file after 100 ms; "exit N" returns
// N; "crash" ends by itself with kCrash. On Windows there are also "bytes", which prints a line with an umlaut in the
// ANSI code page, and "console", which prints whether there is a window. A FILE is a path as the system spells it.
std::string ChildProgram(const std::string& what);

// The names of what ends a program: its own crash, and EndAll.
extern const std::string_view kCrash;
extern const std::string_view kEndedByUs;

// The bytes of a batch file with these lines. Each is a command that all systems' command interpreters know.
std::string BatchFileBytes(const std::vector<std::string>& lines);

// Names of folders whose batch files are hard to start.
std::vector<std::string> AwkwardNames();

// Adds a file that looks like a program and is none.
void AddRubbishProgram(const TempFolder& folder, std::string_view name);

bool IsAlive(int id);
int ThreadsOfThisProgram();
// Whether the system lists a program that this one has started, also one that has ended. Never on Windows, which does
// not keep those.
bool HasChildren();

}  // namespace discwright::host::testing
