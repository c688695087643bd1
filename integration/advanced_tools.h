// The recovery tools that come on bootable CDs of their own.
#pragma once

#include <string>

#include "util/context.h"

namespace discwright::integration {

std::string StagingFolder();  // program folder + "\advtemp": where a tool's CD is patched; gone after the step

// Puts ERD Commander and O&O BlueCon, each from the root folder of its CD, beside Windows Setup: the folder I386, which
// all three start from, gets a name of its own, and what names it is patched.
void AddAdvTools(util::Context& context, bool GetErdC, bool GetBCon, const std::string& ErdCLoc,
                 const std::string& BConLoc);

}  // namespace discwright::integration
