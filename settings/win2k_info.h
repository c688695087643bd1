// What the Windows 2000/XP/2003 installation info dialog does with its fields.
#pragma once

#include <string>

#include "forms/frm_win2kinfo.h"

namespace discwright::settings {

// Loads the dialog: chooses the template script and fills the fields from it. Happens once per run; a dialog that is
// loaded already stays as it is.
void LoadWin2KInfo(forms::FrmWin2KInfo& dialog);

// Fills the fields from an unattended setup script; nothing when there is no such file.
void FillSetupDataFromUnattend(forms::FrmWin2KInfo& dialog, const std::string& script);

// Writes section "Win2KInfo" of the key file, and reads it back (nothing when there is no such file).
void FillSetupDataToKeyFile(const forms::FrmWin2KInfo& dialog, const std::string& key_file);
void FillSetupDataFromKeyFile(forms::FrmWin2KInfo& dialog, const std::string& key_file);

}  // namespace discwright::settings
