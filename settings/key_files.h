// The two key files with the answers for Windows Setup. "keyfile2.txt", the working store, is written by the dialogs.
// "keyfile.txt", the build copy, is what a build reads: call FillKeyFile before.
#pragma once

#include "util/notes.h"

namespace discwright::settings {

inline constexpr const char* kWin9xSection = "Win9xInfo";  // the sections of both files
inline constexpr const char* kWin2KSection = "Win2KInfo";
inline constexpr const char* kTemplateKey = "TemplateFile";  // a key of Win2KInfo: the path of the user's setup script

// Whether the working store has answers in that section, even if they are empty.
bool HoldsAnswers(const char* section);

struct ChosenSections {
  bool AddInfo_toWin9xSetup = false;  // copy Win9xInfo
  bool AddInfo_toWin2KSetup = false;  // copy Win2KInfo
};

// Copies the chosen sections from the working store to the build copy. Does nothing when there is no working store.
// Notes values that are cut at 99 characters, except the path of the template, and values that could not be written.
// OptimizedFor is not copied: the build copy keeps its own value. Existing key files rely on that.
void FillKeyFile(util::Notes& notes, const ChosenSections& chosen);

}  // namespace discwright::settings
