// The session settings file: every choice of the wizard, kept from one run to the next.
#pragma once

#include <string>

#include "forms/all_windows.h"
#include "host/status.h"
#include "util/notes.h"

namespace discwright::settings {

// Loads a session file into the controls; keys it lacks untick or empty theirs, but the boot disks stay chosen. Loads
// both dialogs hidden. Values that were cut at 99 characters are noted. Writes nothing.
void ReadSession(forms::Windows& windows, util::Notes& notes, const std::string& file_name);

// The same, and refreshes "keyfile2.txt" from it.
void ReadVexaCDINI(forms::Windows& windows, util::Notes& notes, const std::string& file_name);

// Whether a file holds any of a session's choices: one in UTF-16, for one, is read as if it held none.
bool HoldsChoices(const std::string& file_name);

// Rewrites the program folder's own session file from the controls as a whole, loading dialogs that are not loaded yet;
// a failure is noted and leaves the old file as it was.
void WriteVexaCDINI(forms::Windows& windows, util::Notes& notes);

// Writes a session file of the controls as they are: changes none of them, loads no dialog. The service pack is written
// as empty while it is not chosen. Notes each value that will be cut at 99 characters when the file is read. A failure
// leaves an old file as it was.
host::Status WriteSession(forms::Windows& windows, util::Notes& notes, const std::string& file_name);

}  // namespace discwright::settings
