// The utilities folder and the additional files on the CD tree.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

struct FileChoices {
  bool AddUtils = false;
  bool AddAddFiles = false;
  std::string Utils_Loc = {};     // goes to the CD's folder "vexa"
  std::string AddFiles_Loc = {};  // goes to the CD's root
};

void AddVexa_Files(steps::Context& context, const FileChoices& choices);

}  // namespace discwright::integration
