// Finds the names on the disk for paths of the core, whose letter case may differ from that of the disk.
#pragma once

#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// Returns the native path of a core path. Names that exist get the letter case of the disk; all others keep theirs. An
// exact match wins over a match in another case. If several names match in other cases, the first in the order of their
// bytes is taken. A link as the last name is not followed. The path is empty when the system cannot take it.
// Fails when a folder on the way cannot be looked at: a file in it would otherwise be taken for a missing one.
Result<std::string> RealPath(std::string_view path);

// The same for a path to which something new may be written. If a folder may not be listed, only an exact match counts,
// and any other name is new. For a path that is most likely new this needs fewer looks at the disk.
Result<std::string> RealPathOfNew(std::string_view path);

// Tells the lookup that this program has just created the native path that one of these functions has returned. Its
// folder then need not be read again.
void NoteCreated(const std::string& native);

// Tells the lookup that this program has changed names in a native folder without looking them up before.
void NoteChanged(const std::string& folder);

}  // namespace discwright::host
