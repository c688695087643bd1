// The two installation info dialogs over the main window.
#pragma once

#include "steps/context.h"

namespace discwright::wizard {

// Binds the buttons that open the dialogs, and those in them. A dialog opens with the texts that it had when it was
// closed.
void BindDialogs(steps::Context& context);

// Shows a dialog over its owner, which is disabled meanwhile, and returns when the dialog is closed. Closing the owner
// closes the dialog, too.
void RunDialog(forms::Form& dialog, forms::Form& owner, host::UserInterface& user);

}  // namespace discwright::wizard
