// What Next asks of a page before it is left.
#pragma once

#include "steps/context.h"

namespace discwright::wizard {

// Runs the page's checks in order; each that fails shows its own message. True when all passed. Changes nothing but
// the two passwords, which are emptied when they differ.
bool PageIsValid(steps::Context& context, int page);

}  // namespace discwright::wizard
