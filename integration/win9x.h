// The setup files of Windows 98/98SE/Me on the CD.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

// Copies the folder of cabinet files `Source` to "WIN98", "WINME" or "WINSETUP" of the CD, by what it holds, and writes
// the user's answers into its MSBATCH.INF.
void AddWin9x(steps::Context& context, const std::string& Source, bool AddInfo_toMSBatch);

}  // namespace discwright::integration
