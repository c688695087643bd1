// Locations that Next proposes for the pages that follow.
#pragma once

#include "forms/frm_discwright.h"

namespace discwright::wizard {

// At the start of a run without a session: where there is no drive C:, the image is proposed in the user's home folder
// and no service pack is.
void FillStartDefaults(forms::FrmDiscwright& main);

// Leaving `page`: fills the empty location fields of the pages behind it, never one that has a text.
void FillDefaults(forms::FrmDiscwright& main, int page);

}  // namespace discwright::wizard
