// What the Windows 98/Me installation info dialog does with its fields.
#pragma once

#include <string>

#include "forms/frm_win9xinfo.h"

namespace discwright::settings {

// Loads the dialog: fills the fields from a key file of the program folder, or not at all. Happens once per run; a
// dialog that is loaded already stays as it is.
void LoadWin9xInfo(forms::FrmWin9xInfo& dialog);

// Fills the fields from section "Win9xInfo" of the file; nothing when there is no such file.
void FillSetupDataFromKeyFile(forms::FrmWin9xInfo& dialog, const std::string& key_file);

// Writes section "Win9xInfo" of the program folder's "keyfile2.txt".
void FillSetupDataToKeyFile(const forms::FrmWin9xInfo& dialog);

}  // namespace discwright::settings
