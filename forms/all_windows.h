// The program's three windows together.
#pragma once

#include <array>

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

// The control that a script means by `name`: of any window, letter case ignored; where two windows have one of that
// name the main window's, unless the window is named ("FrmWin9xInfo.TxtOwner"). Null when there is none or two are
// meant.
Control* FindControl(Windows& windows, std::string_view name);

// Gives a control a value as a script writes it. `name` is as above.
// Check boxes take 0, 1 or 2, option buttons 0, 1, True or False, text boxes any text. Returns what is wrong, as a
// sentence for the user, or the empty string.
std::string Assign(Windows& windows, std::string_view name, std::string_view value);

}  // namespace discwright::forms
