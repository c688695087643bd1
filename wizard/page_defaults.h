// Locations that Next proposes for the pages that follow.
#pragma once

#include "forms/frm_discwright.h"

namespace discwright::wizard {

// Leaving `page`: fills the empty location fields of the pages behind it, never one that has a text.
void FillDefaults(forms::FrmDiscwright& main, int page);

}  // namespace discwright::wizard
