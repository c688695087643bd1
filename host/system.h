// Tells facts about the running program and the machine on which it runs: call ProgramFolder(), Today() and so on.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace discwright::host {

// The folder in which the program works, without a separator at its end: the folder that contains the running program,
// or the one that UseProgramFolder named. Empty when the system cannot tell; then the caller must not write or delete
// anything in the program's folder.
std::string ProgramFolder();
// From now on ProgramFolder returns this folder. Call it once, at the start of the program.
void UseProgramFolder(std::string_view folder);

std::string CurrentFolder();

// Claims an existing folder for this program alone, until the returned object is destroyed or the program ends. Returns
// null while another program has claimed the folder: on Windows a program of the same logon session, on other systems a
// program on the same machine. Leaves nothing in the folder.
std::shared_ptr<void> ClaimFolder(std::string_view folder);

// Prepares the signals of POSIX systems; every program calls it at its start. Afterwards a write that makes a file too
// large fails and does not end the program. The exit codes of started programs are known, even if the parent of this
// program ignores the signal SIGCHLD and has handed that down.
void SetUpSignals();

// 1 for Windows 95, 98 and Me; 2 for the NT family and all other systems.
int PlatformId();

struct Date {
  int year = 0;
  int month = 0;        // 1 to 12
  int day = 0;          // 1 to 31
  std::string weekday;  // abbreviated, in the system's language
};
Date Today();

}  // namespace discwright::host
