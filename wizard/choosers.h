// The buttons that choose a folder or a file, show a folder, or open a web page, as tables.
#pragma once

#include <string>
#include <string_view>

#include "steps/context.h"

namespace discwright::wizard {

// Binds every Browse and Explore button and every link of the main window.
void BindChoosers(steps::Context& context);

// The folder that a chooser opens at, made of a field's text: the root of a drive ends in a backslash, any other folder
// in none; an empty text is drive C:, or the user's home folder where there is none.
std::string StartFolder(std::string_view text);

}  // namespace discwright::wizard
