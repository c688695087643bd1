// What a user can do to a control: the calls that every face makes, and tests make in the user's place.
#pragma once

#include <string_view>

#include "forms/control.h"

namespace discwright::forms {

// Whether a user can do something to the control once its page is in view: it is visible, and neither it nor a frame
// on which it stands nor its form is disabled.
bool CanBeUsed(const Control& control);

// Whether the control is one that a user gives something to: a button, box, field or link.
bool TakesInput(const Control& control);

// Each of these does nothing and returns false when the control cannot be used.
bool Press(CommandButton& button);
bool Toggle(CheckBox& box, bool on);
bool Choose(OptionButton& option);
bool Type(TextBox& field, std::string_view text);  // the whole new text; not into a field that is read only
bool Follow(Link& link);

// For the cross of a window, and for the system's request to close it. The program decides what happens then: the form
// may stay open.
void AskToClose(Form& form);

}  // namespace discwright::forms
