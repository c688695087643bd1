// Binds the buttons that choose a folder or a file, show a folder, or open a web page, and lets the user drop folders
// and files onto the fields. Call BindChoosers once.
#pragma once

#include <string>
#include <string_view>

#include "steps/context.h"

namespace discwright::wizard {

// Binds every Browse and Explore button and every link of the main window. A path that the user drops onto the field of
// a Browse button does the same as choosing that path.
void BindChoosers(steps::Context& context);

// Returns the folder that a chooser shows first, from the text of its field. An empty text gives the user's home folder
// on systems without a drive C:, and "C:\" otherwise. The root of a drive gets a backslash at its end; any other folder
// loses a separator there, but not its only character.
std::string StartFolder(std::string_view text);

}  // namespace discwright::wizard
