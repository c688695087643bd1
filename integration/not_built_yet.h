// Build steps that are declared and called in their places but not built yet: choosing one ends the build with a
// "Fatal Error" box that says so.
#pragma once

#include <string_view>

#include "util/context.h"

namespace discwright::integration {

void AddWin2K(util::Context& context, std::string_view Source, std::string_view I386Name, bool DelTreeLang,
              std::string_view SP_exe, std::string_view HotFixDir, bool AddInfo_toAssis, bool AddInfo_toUnattend);

void AddWin9x(util::Context& context, std::string_view Source, bool AddInfo_toMSBatch);

void AddAdvTools(util::Context& context, bool GetErdC, bool GetBCon, std::string_view ErdCLoc,
                 std::string_view BConLoc);

}  // namespace discwright::integration
