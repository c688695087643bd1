// Opens the two installation info dialogs over the main window. Call BindDialogs once.
#pragma once

#include "steps/context.h"

namespace discwright::wizard {

// Binds the buttons that open the dialogs and the buttons in the dialogs. A dialog keeps its texts when it is closed
// and opened again.
void BindDialogs(steps::Context& context);

// Shows a dialog and returns when it is closed. The owner is disabled meanwhile. Closing the owner also closes the
// dialog.
void RunDialog(forms::Form& dialog, forms::Form& owner, host::UserInterface& user);

}  // namespace discwright::wizard
