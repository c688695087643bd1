// Facts about the machine and the running program that the core asks its host for.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// The folder that holds the running program, without a trailing separator.
std::string ProgramFolder();

std::string CurrentFolder();

// The sole use of a folder that is there, until what is returned goes or the program ends; null while another holder
// has it: on Windows one of the same logon session, elsewhere one of the same machine. Leaves nothing in the folder.
std::shared_ptr<void> ClaimFolder(std::string_view folder);

// 1 = Windows 95/98/Me, 2 = the NT family and every other system.
int PlatformId();

// The drives that hold optical discs, in the system's order: "D:" on Windows, the mount point of each mounted optical
// disc elsewhere.
std::vector<std::string> OpticalDrives();

// The 8.3 form of an existing path; nothing when the system has none (always, off Windows).
std::string ShortPath(std::string_view path);

struct Date {
  int year = 0;
  int month = 0;        // 1 to 12
  int day = 0;          // 1 to 31
  std::string weekday;  // abbreviated, in the system's language
};
Date Today();

// A path as the user or the system spells it, in the core's spelling, made absolute; and back, for showing. Both are
// text like any other here: UTF-8, or the host's raw bytes.
std::string PathFromNative(std::string_view native);
std::string PathToNative(std::string_view path);

// The name that a file or folder of a setup CD has on the disc. Those discs name all in upper case, which some systems
// show in lower case: there a name without an upper-case letter becomes upper case. Elsewhere, and with a mixed name,
// it is the name itself.
std::string NameOnDisc(std::string_view name);

// A text without letter case, for comparing names: two names are one on a CD when their folded forms are equal.
std::string FoldCase(std::string_view text);

}  // namespace discwright::host
