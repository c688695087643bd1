// Adds the setup files of Windows 2000/XP/2003 to the CD. Call AddWin2K once per build.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

struct Win2KChoices {
  std::string Source = {};          // the folder "I386" of a setup CD
  bool DelTreeLang = false;         // leave out the folder of further languages
  std::string SP_exe = {};          // the installer of a service pack to slipstream; empty: none
  bool AddInfo_toUnattend = false;  // write the user's answers to WINNT.SIF
};

// Copies the setup folder and the tag files into the workspace, slipstreams the service pack, writes the user's
// answers, and deletes the folder of further languages. A failure that ends the build is shown.
void AddWin2K(steps::Context& context, const Win2KChoices& choices);

}  // namespace discwright::integration
