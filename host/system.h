// The running program and the machine it runs on: ProgramFolder(), Today() and the like.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace discwright::host {

// The folder that holds the running program, without a separator at its end. Empty when the system does not tell: then
// nothing must be written or deleted in it.
std::string ProgramFolder();

std::string CurrentFolder();

// The sole use of an existing folder, until what is returned is destroyed or the program ends. Null while another
// program has it: on Windows one of the same logon session, elsewhere one of the same machine. Leaves nothing in the
// folder.
std::shared_ptr<void> ClaimFolder(std::string_view folder);

// From now on a write beyond the largest size that this account may give a file fails, and does not end the program.
void LetLargeWritesFail();

// 1 = Windows 95/98/Me, 2 = the NT family and every other system.
int PlatformId();

struct Date {
  int year = 0;
  int month = 0;        // 1 to 12
  int day = 0;          // 1 to 31
  std::string weekday;  // abbreviated, in the system's language
};
Date Today();

}  // namespace discwright::host
