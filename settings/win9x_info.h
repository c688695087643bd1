// What the Windows 98/Me installation info dialog does with its fields.
#pragma once

#include <string>

#include "forms/frm_win9xinfo.h"
#include "host/status.h"
#include "util/notes.h"

namespace discwright::settings {

// Loads the dialog: fills the fields from a key file of the program folder, on Windows 95, 98 and Me from the registry
// where there is none, or not at all. Happens once per run; a dialog that is loaded already stays as it is.
void LoadWin9xInfo(forms::FrmWin9xInfo& dialog);

// Fills the fields from section "Win9xInfo" of the file; nothing when there is no such file.
void FillSetupDataFromKeyFile(forms::FrmWin9xInfo& dialog, const std::string& key_file);

// Fills the fields from what the running Windows 95, 98 or Me was installed with; what it does not tell is empty.
void FillSetupDataFromReg(forms::FrmWin9xInfo& dialog);

// Writes section "Win9xInfo" of the program folder's "keyfile2.txt"; returns the first failure.
host::Status FillSetupDataToKeyFile(const forms::FrmWin9xInfo& dialog);

// Makes the batch file of Windows 98/Me Setup from the key file and the template of the one or the other; nothing but
// a note when there is no such key file. False, with a note, when it could not be made.
bool FillSetupDataFromKeyFileToMSBatch(util::Notes& notes, const std::string& KeyFile, const std::string& MSBatch);

// Binds the two buttons to the handlers below.
void BindWin9xInfo(forms::FrmWin9xInfo& dialog);

void CmdOK_Click(forms::FrmWin9xInfo& dialog);      // saves the fields
void CmdCancel_Click(forms::FrmWin9xInfo& dialog);  // saves nothing; edited fields stay for the rest of the run

}  // namespace discwright::settings
