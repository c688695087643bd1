// Pages and dialogs as text, for --controls: PageText().
#pragma once

#include <string>
#include <string_view>

#include "forms/all_windows.h"

namespace discwright::desktop {

// One line for each control of a page: its name, its kind, whether a user can change or press it now ("yes" or "no";
// blank for a control without input), its caption, its value, its access key, and the boxes that must be checked first.
// `page` is the number of a page or the name of a dialog, or empty for all of them. The text is empty when there is no
// such page.
std::string PageText(forms::Windows& windows, std::string_view page);

}  // namespace discwright::desktop
