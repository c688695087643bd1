// Shows pages and dialogs as text, for the option --controls. Call PageText.
#pragma once

#include <string>
#include <string_view>

#include "forms/all_windows.h"

namespace discwright::desktop {

// Returns one line for each control of a page: its name, its kind, whether a user can change or press it now ("yes" or
// "no"; blank for a control without input), its caption, its value, its access key, and the boxes that must be checked
// first. `page` is the number of a page or the name of a dialog; if it is empty, the text has the controls of all of
// them. The text is empty if there is no such page.
std::string PageText(forms::Windows& windows, std::string_view page);

}  // namespace discwright::desktop
