// The setup files of Windows 2000/XP/2003 on the CD.
#pragma once

#include <string>
#include <string_view>

#include "util/context.h"

namespace discwright::integration {

// Copies the setup folder `Source` ("I386" of a setup CD) and the CD's tag files, slipstreams the service pack `SP_exe`
// (its self-extracting installer; empty: none), writes the user's answers and deletes the folder of further languages.
// `I386Name`, `HotFixDir` and `AddInfo_toSetupWin` are taken and not used: that is meant.
void AddWin2K(util::Context& context, const std::string& Source, std::string_view I386Name, bool DelTreeLang,
              const std::string& SP_exe, std::string_view HotFixDir, bool AddInfo_toSetupWin, bool AddInfo_toUnattend);

}  // namespace discwright::integration
