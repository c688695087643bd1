// Fills in default locations. Call FillStartDefaults at the start without a session, and FillDefaults whenever Next
// leaves a page.
#pragma once

#include "forms/frm_discwright.h"

namespace discwright::wizard {

// On systems without a drive C:, replaces the default locations on that drive: the image goes to the user's home
// folder, and the path of the service pack is emptied.
void FillStartDefaults(forms::FrmDiscwright& main);

// Fills empty location fields of the pages after `page`. Fields with a text do not change.
void FillDefaults(forms::FrmDiscwright& main, int page);

}  // namespace discwright::wizard
