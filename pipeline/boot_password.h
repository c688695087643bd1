// The boot menu's password protection. Not built yet: choosing it ends the build with a box that says so.
#pragma once

#include <string_view>

#include "util/context.h"

namespace discwright::pipeline {

void ProtectBootMenu(util::Context& context, std::string_view first_password, std::string_view second_password);

}  // namespace discwright::pipeline
