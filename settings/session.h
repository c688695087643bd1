// Reads and writes session files. A session file keeps every choice of the wizard for the next run. ReadVexaCDINI and
// WriteVexaCDINI are for the window, ReadSession and WriteSession for files that the user names.
#pragma once

#include <string>

#include "forms/all_windows.h"
#include "host/status.h"
#include "util/notes.h"

namespace discwright::settings {

// Sets every control to its value in a session file. If a key is missing, its check box is cleared or its text is
// emptied; the boot disks stay chosen. Loads both dialogs without showing them. Notes values that were cut at 99
// characters. Writes nothing. Returns the failure when the file cannot be read; the controls after the value that
// could not be read are then unchanged.
host::Status ReadSession(forms::Windows& windows, util::Notes& notes, const std::string& file_name);

// Calls ReadSession. If that succeeds, writes the answers for Windows 98/Me to "keyfile2.txt".
host::Status ReadVexaCDINI(forms::Windows& windows, util::Notes& notes, const std::string& file_name);

// Whether a file contains at least one key of a session. A file in UTF-16 is read as if it contained none.
bool HoldsChoices(const std::string& file_name);

// Writes the session file in the program folder from the controls. Loads the dialogs if they are not loaded yet. A
// failure is noted, and the old file stays as it was.
void WriteVexaCDINI(forms::Windows& windows, util::Notes& notes);

// Writes a session file from the controls. Changes no control and loads no dialog. The path of the service pack is
// written as empty if no service pack is chosen. Notes each value that will be cut at 99 characters when the file is
// read. After a failure the old file stays as it was.
host::Status WriteSession(forms::Windows& windows, util::Notes& notes, const std::string& file_name);

}  // namespace discwright::settings
