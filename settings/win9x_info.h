// The behaviour of the Windows 98/Me installation info dialog, and the answer file that is made from its fields. Call
// BindWin9xInfo once, and LoadWin9xInfo before the dialog or its fields are used.
#pragma once

#include <string>

#include "forms/frm_win9xinfo.h"
#include "host/status.h"
#include "util/notes.h"

namespace discwright::settings {

// Fills the fields from a key file. If there is none, Windows 95, 98 and Me fill them from the registry; on all other
// systems they keep their defaults. Does nothing if the dialog has been loaded in this run.
void LoadWin9xInfo(forms::FrmWin9xInfo& dialog, util::Notes& notes);

// Fills the fields from section Win9xInfo of the key file. Does nothing when there is no such file. If the file cannot
// be read, that is noted, and the fields that were not read yet keep their texts.
void FillSetupDataFromKeyFile(forms::FrmWin9xInfo& dialog, util::Notes& notes, const std::string& key_file);

// Fills the fields from the registry of the running Windows 95, 98 or Me. A missing value empties its field.
void FillSetupDataFromReg(forms::FrmWin9xInfo& dialog);

// Writes the fields to section Win9xInfo of "keyfile2.txt" in the program folder. Returns the first failure.
host::Status FillSetupDataToKeyFile(const forms::FrmWin9xInfo& dialog);

// Makes the answer file of Windows 98/Me Setup from the key file and one of the program's two templates. Without a key
// file there is only a note, and the result is true. Returns false, with a note, when the answer file could not be
// made.
bool FillSetupDataFromKeyFileToMSBatch(util::Notes& notes, const std::string& KeyFile, const std::string& MSBatch);

// Binds the two buttons to the handlers below.
void BindWin9xInfo(forms::FrmWin9xInfo& dialog, util::Notes& notes);

// Writes the fields to "keyfile2.txt". A failure is noted.
void CmdOK_Click(forms::FrmWin9xInfo& dialog, util::Notes& notes);
// Writes nothing; edited fields keep their texts until the program ends.
void CmdCancel_Click(forms::FrmWin9xInfo& dialog);

}  // namespace discwright::settings
