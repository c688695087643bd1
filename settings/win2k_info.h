// What the Windows 2000/XP/2003 installation info dialog does with its fields.
#pragma once

#include <string>

#include "forms/frm_win2kinfo.h"

namespace discwright::settings {

// Chooses the template script and fills the fields from it, as the dialog does when it is loaded.
void LoadWin2KInfo(forms::FrmWin2KInfo& dialog);

// Fills the fields from an unattended setup script; nothing when there is no such file.
void FillSetupDataFromUnattend(forms::FrmWin2KInfo& dialog, const std::string& script);

// Writes section "Win2KInfo" of the key file, and reads it back.
void FillSetupDataToKeyFile(const forms::FrmWin2KInfo& dialog, const std::string& key_file);
void FillSetupDataFromKeyFile(forms::FrmWin2KInfo& dialog, const std::string& key_file);

}  // namespace discwright::settings
