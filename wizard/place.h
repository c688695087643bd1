// Says on the first page where CDs are put together, for a program that is installed for all users.
#pragma once

#include "forms/frm_discwright.h"

namespace discwright::wizard {

// Shows LblPlace if the program works in a folder of its user. Call it once, after util::WhyNoUsersFolder.
void ShowPlace(forms::FrmDiscwright& main);

}  // namespace discwright::wizard
