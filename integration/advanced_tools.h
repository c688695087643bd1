// Adds two recovery tools to the CD. Each of them comes on a bootable CD of its own. Call AddAdvTools once per build,
// after AddWin2K.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

struct ToolChoices {
  bool GetErdC = false;      // add ERD Commander
  bool GetBCon = false;      // add O&O BlueCon
  std::string ErdCLoc = {};  // the root folder of the CD of ERD Commander
  std::string BConLoc = {};  // the root folder of the CD of O&O BlueCon
};

// Copies the chosen tools into the workspace. The tools and Windows Setup all start from a folder I386. Therefore each
// tool's folder is renamed, and the files that contain its name are patched. A failure that ends the build is shown.
void AddAdvTools(steps::Context& context, const ToolChoices& choices);

}  // namespace discwright::integration
