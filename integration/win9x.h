// Adds the setup files of Windows 98/98SE/Me to the CD. Call AddWin9x once per build.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

// Copies `Source`, the folder of the cabinet files, to the folder WIN98, WINME or WINSETUP of the workspace. The
// cabinet files decide which. With `AddInfo_toMSBatch`, writes the user's answers to MSBATCH.INF in that folder. A
// failure that ends the build is shown.
void AddWin9x(steps::Context& context, const std::string& Source, bool AddInfo_toMSBatch);

}  // namespace discwright::integration
