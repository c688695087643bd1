// Adds the utilities folder and the user's additional files to the CD. Call AddVexa_Files once per build.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

struct FileChoices {
  bool AddUtils = false;
  bool AddAddFiles = false;
  std::string Utils_Loc = {};     // the source of the CD's folder "vexa"
  std::string AddFiles_Loc = {};  // its contents are copied to the root of the CD
};

// Copies the chosen folders into the workspace. A failure that ends the build is shown.
void AddVexa_Files(steps::Context& context, const FileChoices& choices);

}  // namespace discwright::integration
