// Which check boxes enable which fields, as a table. The rules follow the values, whoever sets them.
#pragma once

#include <string>
#include <vector>

#include "forms/all_windows.h"

namespace discwright::wizard {

// Applies all rules now and again whenever a box changes, until the subscription ends.
[[nodiscard]] forms::Subscription KeepRules(forms::Windows& windows);

// The boxes that have to be checked before a choice counts. Each entry is a list of boxes of which one is enough. Empty
// when nothing is missing. A dialog's answers count while the button that opens it can be used.
std::vector<std::vector<const forms::CheckBox*>> MissingFor(forms::Windows& windows, const forms::Control& control);

}  // namespace discwright::wizard
