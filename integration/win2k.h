// The setup files of Windows 2000/XP/2003 on the CD.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

struct Win2KChoices {
  std::string Source = {};          // the folder "I386" of a setup CD
  bool DelTreeLang = false;         // the folder of further languages is left out
  std::string SP_exe = {};          // the self-extracting installer of a service pack; empty: none
  bool AddInfo_toUnattend = false;  // WINNT.SIF gets the user's answers
};

// Copies the setup folder and the CD's tag files, slipstreams the service pack, writes the user's answers and deletes
// the folder of further languages.
void AddWin2K(steps::Context& context, const Win2KChoices& choices);

}  // namespace discwright::integration
