// Does to a control what a user can do to it. Every face calls these functions for its user, and so do the tests.
#pragma once

#include <string>
#include <string_view>

#include "forms/control.h"

namespace discwright::forms {

// Whether a user can use the control while its page is shown: the control is visible, and the control, its frames and
// its form are enabled.
bool CanBeUsed(const Control& control);

// Whether the control takes input: a button, a check box, an option button, a link, or a text box that is not
// read-only.
bool TakesInput(const Control& control);

// Each of these functions does nothing and returns false when the control cannot be used.
bool Press(CommandButton& button);
bool Toggle(CheckBox& box, bool on);
bool Choose(OptionButton& option);
bool Type(TextBox& field, std::string_view text);  // `text` replaces the old text; false for a read-only field
bool Follow(Link& link);
bool Drop(TextBox& field, const std::string& path);  // a path of the core; false for a field that takes no paths

// A face calls this when the user presses Esc. The program decides what is cancelled.
void AskToCancel(Form& form);

// A face calls this when the user clicks the close button of a window, and when the system asks the window to close.
// The program decides whether the form is closed.
void AskToClose(Form& form);

}  // namespace discwright::forms
