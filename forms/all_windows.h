// Contains the program's three windows, and functions that scripts and faces use: they find a control by its name,
// convert its value to text and back, and return the texts that a window shows.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "forms/frm_discwright.h"
#include "forms/frm_win2kinfo.h"
#include "forms/frm_win9xinfo.h"

namespace discwright::forms {

struct Windows {
  FrmDiscwright main;
  FrmWin2KInfo win2k_info;
  FrmWin9xInfo win9x_info;

  std::array<Form*, 3> All() { return {&main, &win2k_info, &win9x_info}; }
};

// Finds the controls with a name such as "TxtOwner" or "FrmWin9xInfo.TxtOwner", in any letter case. A name without a
// window finds the control of the main window, or the controls of both dialogs when the main window has none.
std::vector<Control*> FindControls(Windows& windows, std::string_view name);

// Sets a control to a value from a script: check boxes take 0, 1 or 2, option buttons 0, 1, True or False, text boxes
// any text. Works on a disabled control, too. Returns a sentence for the user when the value is wrong, or the empty
// string.
std::string Assign(Control& control, std::string_view value);

// Returns the value in the form that Assign takes. For a control without a value, returns the caption as it is shown.
std::string ValueText(const Control& control);

// Returns the caption as a window shows it: without the ampersand that marks the access key, and with "&" for "&&".
std::string ShownText(const Captioned& control);

// Returns the text by which a user knows the control: its own caption, or the label of a text box. The text is empty
// for a bar or a picture.
std::string NamingText(const Control& control);

// Returns the letter that the user presses together with Alt, in the letter case of the caption; 0 if the control has
// no access key. A text box and a link have the key of their label.
char AccessKey(const Control& control);

}  // namespace discwright::forms
