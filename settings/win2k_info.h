// What the Windows 2000/XP/2003 installation info dialog does with its fields.
#pragma once

#include <string>

#include "forms/frm_win2kinfo.h"
#include "host/status.h"
#include "host/user_interface.h"
#include "util/notes.h"

namespace discwright::settings {

// Loads the dialog: chooses the template script and fills the fields from it. Happens once per run; a dialog that is
// loaded already stays as it is.
void LoadWin2KInfo(forms::FrmWin2KInfo& dialog);

// Fills the fields from an unattended setup script; nothing when there is no such file.
void FillSetupDataFromUnattend(forms::FrmWin2KInfo& dialog, const std::string& script);

// Writes section "Win2KInfo" of the key file, the first failure being returned, and reads it back (nothing when there
// is no such file).
host::Status FillSetupDataToKeyFile(const forms::FrmWin2KInfo& dialog, const std::string& key_file);
void FillSetupDataFromKeyFile(forms::FrmWin2KInfo& dialog, const std::string& key_file);

// Makes the answer file of Windows 2000/XP/2003 Setup from the key file and the user's script, or the template where
// that is not there; nothing but a note when there is no such key file. False, with a note, when it could not be made.
bool FillSetupDataFromKeyFileToUnattend(util::Notes& notes, const std::string& KeyFile, const std::string& Unattend);

// Binds the three buttons to the handlers below.
void BindWin2KInfo(forms::FrmWin2KInfo& dialog, host::UserInterface& user);

// Lets the user choose a script and fills the fields from it; a user who cancels changes nothing.
void CmdBrwUnattend_Click(forms::FrmWin2KInfo& dialog, host::UserInterface& user);
void CmdOK_Click(forms::FrmWin2KInfo& dialog);      // saves the fields
void CmdCancel_Click(forms::FrmWin2KInfo& dialog);  // saves nothing; edited fields stay for the rest of the run

}  // namespace discwright::settings
