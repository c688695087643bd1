// Binds the buttons that choose a folder or a file, show a folder, or open a web page. Call BindChoosers once.
#pragma once

#include <string>
#include <string_view>

#include "steps/context.h"

namespace discwright::wizard {

// Binds every Browse and Explore button and every link of the main window.
void BindChoosers(steps::Context& context);

// Returns the folder that a chooser shows first, from the text of its field. An empty text gives the user's home folder
// on systems without a drive C:, and "C:\" otherwise. The root of a drive gets a backslash at its end; any other folder
// loses a separator there.
std::string StartFolder(std::string_view text);

}  // namespace discwright::wizard
