// The utilities folder and the additional files on the CD tree.
#pragma once

#include <string_view>

#include "util/context.h"

namespace discwright::integration {

void AddVexa_Files(util::Context& context, bool AddUtils, bool AddAddFiles, std::string_view Utils_Loc,
                   std::string_view AddFiles_Loc);

}  // namespace discwright::integration
