// The program's three windows together, and their controls by name.
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

// The controls that a script means by `name`, letter case ignored: "FrmWin9xInfo.TxtOwner", or without a window the
// main window's control of that name, or those of the dialogs where it has none.
std::vector<Control*> FindControls(Windows& windows, std::string_view name);

// Gives a control a value as a script writes it, whether or not a user could do that at the moment: check boxes take 0,
// 1 or 2, option buttons 0, 1, True or False, text boxes any text. Returns what is wrong, as a sentence for the user,
// or the empty string.
std::string Assign(Control& control, std::string_view value);

// The value as Assign takes it, or the caption of a control that has none.
std::string ValueText(const Control& control);

// What is read on the control: the caption without the ampersand that marks its access key, and with one ampersand
// where two stand together.
std::string ShownText(const Captioned& control);

// What names the control to the user: a field's label, or its own caption. Empty for a bar or a picture.
std::string NamingText(const Control& control);

// The letter that is pressed together with Alt, as it stands in the caption; 0 when there is none. A field has the key
// of its label.
char AccessKey(const Control& control);

}  // namespace discwright::forms
