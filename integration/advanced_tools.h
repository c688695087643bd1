// The recovery tools that come on bootable CDs of their own.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

struct ToolChoices {
  bool GetErdC = false;  // ERD Commander, from the root folder of its CD
  bool GetBCon = false;  // O&O BlueCon, likewise
  std::string ErdCLoc = {};
  std::string BConLoc = {};
};

// Puts ERD Commander and O&O BlueCon beside Windows Setup: the folder I386, which
// all three start from, gets a name of its own, and what names it is patched.
void AddAdvTools(steps::Context& context, const ToolChoices& choices);

}  // namespace discwright::integration
