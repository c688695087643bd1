// The behaviour of the Windows 2000/XP/2003 installation info dialog, and the answer file that is made from its fields.
// Call BindWin2KInfo once, and LoadWin2KInfo before the dialog or its fields are used.
#pragma once

#include <string>

#include "forms/frm_win2kinfo.h"
#include "host/status.h"
#include "host/user_interface.h"
#include "util/notes.h"

namespace discwright::settings {

// The functions that fill fields do nothing when there is no such file. If a file cannot be read, that is noted, and
// the fields that were not read yet keep their texts.

// Chooses the setup script and fills the fields from it. Does nothing if the dialog has been loaded in this run.
void LoadWin2KInfo(forms::FrmWin2KInfo& dialog, util::Notes& notes);

// Fills the fields from the script of an unattended setup.
void FillSetupDataFromUnattend(forms::FrmWin2KInfo& dialog, util::Notes& notes, const std::string& script);

// Writes the fields to section Win2KInfo of the key file. Returns the first failure.
host::Status FillSetupDataToKeyFile(const forms::FrmWin2KInfo& dialog, const std::string& key_file);

// Fills the fields from section Win2KInfo of the key file.
void FillSetupDataFromKeyFile(forms::FrmWin2KInfo& dialog, util::Notes& notes, const std::string& key_file);

// Makes the answer file of Windows 2000/XP/2003 Setup. The answers come from the key file. The template is the user's
// setup script, or the program's own template when there is none. Without a key file there is only a note, and the
// result is true. Returns false, with a note, when the answer file could not be made.
bool FillSetupDataFromKeyFileToUnattend(util::Notes& notes, const std::string& KeyFile, const std::string& Unattend);

// Binds the three buttons to the handlers below. A script that the user drops onto its field is taken as if it had been
// chosen.
void BindWin2KInfo(forms::FrmWin2KInfo& dialog, host::UserInterface& user, util::Notes& notes);

// Lets the user choose a script and fills the fields from it. Changes nothing if the user cancels.
void CmdBrwUnattend_Click(forms::FrmWin2KInfo& dialog, host::UserInterface& user, util::Notes& notes);
// Writes the fields to "keyfile2.txt". A failure is noted.
void CmdOK_Click(forms::FrmWin2KInfo& dialog, util::Notes& notes);
// Writes nothing; edited fields keep their texts until the program ends.
void CmdCancel_Click(forms::FrmWin2KInfo& dialog);

}  // namespace discwright::settings
