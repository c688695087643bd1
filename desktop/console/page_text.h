// Pages and dialogs as text: the face of the wizard that draws nothing.
#pragma once

#include <string>
#include <string_view>

#include "forms/all_windows.h"

namespace discwright::desktop {

// The controls of a page, one line each: name, kind, whether a user can give it something now ("yes" or "no"; nothing
// for what only shows something), caption, value, access key, and the boxes that have to be checked first. `page`: the
// number of a page or the name of a dialog; empty: all of them. Empty when there is no such page.
std::string PageText(forms::Windows& windows, std::string_view page);

}  // namespace discwright::desktop
