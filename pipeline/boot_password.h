// Protects the boot menu with a password. Call ProtectBootMenu once per build, after Prepare_CDDir.
#pragma once

#include <string_view>

#include "steps/context.h"

namespace discwright::pipeline {

// Switches the protection on in the boot script of the workspace and writes the password there exactly as it was typed.
// If the two entries differ, the menu stays unprotected and a message says so.
void ProtectBootMenu(steps::Context& context, std::string_view first_password, std::string_view second_password);

}  // namespace discwright::pipeline
