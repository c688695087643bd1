// The key files that hold installation details: "keyfile2.txt", the working store, and "keyfile.txt", the build copy.
#pragma once

#include "util/notes.h"

namespace discwright::settings {

inline constexpr const char* kWin9xSection = "Win9xInfo";  // in both files
inline constexpr const char* kWin2KSection = "Win2KInfo";
inline constexpr const char* kTemplateKey = "TemplateFile";  // in the second section: the user's script

// Whether the working store has answers of that section.
bool HoldsAnswers(const char* section);

// Copies the chosen sections from the working store to the build copy; nothing without a working store. Values that are
// cut at 99 characters, apart from the path of the template, or could not be written are noted. OptimizedFor is not
// copied: that is meant.
struct ChosenSections {
  bool AddInfo_toWin9xSetup = false;
  bool AddInfo_toWin2KSetup = false;
};
void FillKeyFile(util::Notes& notes, const ChosenSections& chosen);

}  // namespace discwright::settings
