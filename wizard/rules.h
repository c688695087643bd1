// Keeps the rules that say which check boxes enable which fields. Call KeepRules once. The rules apply to every change
// of a check box, whether the user or the program makes it.
#pragma once

#include <string>
#include <vector>

#include "forms/all_windows.h"

namespace discwright::wizard {

// Applies all rules at once, and again whenever a check box changes, until the subscription ends.
[[nodiscard]] forms::Subscription KeepRules(forms::Windows& windows);

// Returns the check boxes that must be checked before the value of a control has an effect, but are not. Each entry is
// a list of check boxes of which one is enough. A control in a dialog depends on the same boxes as the button that
// opens the dialog.
std::vector<std::vector<const forms::CheckBox*>> MissingFor(forms::Windows& windows, const forms::Control& control);

}  // namespace discwright::wizard
