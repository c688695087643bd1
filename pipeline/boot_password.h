// The boot menu's password protection.
#pragma once

#include <string_view>

#include "steps/context.h"

namespace discwright::pipeline {

// Switches the protection on in the CD's boot script and writes the password there as it was typed; two entries that
// differ leave the menu unprotected, and a box says so.
void ProtectBootMenu(steps::Context& context, std::string_view first_password, std::string_view second_password);

}  // namespace discwright::pipeline
