// Makes the checks that the Next button requires before it leaves a page. Call PageIsValid.
#pragma once

#include "steps/context.h"

namespace discwright::wizard {

// Makes all checks of the page in order; each failed check shows its message. Returns whether all passed. If the two
// passwords differ, both are emptied; nothing else changes.
bool PageIsValid(steps::Context& context, int page);

}  // namespace discwright::wizard
