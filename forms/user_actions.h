// What a user can do to a control. Every face calls these functions for its user, and so do tests.
#pragma once

#include <string_view>

#include "forms/control.h"

namespace discwright::forms {

// Whether a user can use the control while its page is shown: the control is visible, and the control, its frames and
// its form are enabled.
bool CanBeUsed(const Control& control);

// Whether the control takes input: a button, a check box, an option button, a link, or a text box that is not
// read-only.
bool TakesInput(const Control& control);

// Each of these does nothing and returns false when the control cannot be used.
bool Press(CommandButton& button);
bool Toggle(CheckBox& box, bool on);
bool Choose(OptionButton& option);
bool Type(TextBox& field, std::string_view text);  // `text` replaces the old text; false for a read-only field
bool Follow(Link& link);

// For the close button of a window, and for a request of the system to close it. The program decides whether the form
// is closed.
void AskToClose(Form& form);

}  // namespace discwright::forms
