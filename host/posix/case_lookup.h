// Finding the real spelling of a path whose letter case may differ from the disk's.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

// The native path of a core path, in the letter case of the disk as far as it exists; components that do not exist
// keep the case they are written in. An exact match wins over one in another case; of several in other cases the one
// that sorts first bytewise is taken. A link as the last component is not followed.
std::string RealPath(std::string_view path);

// The same for a path that is most likely new, which this finds out with fewer looks at the disk.
std::string RealPathOfNew(std::string_view path);

// Tells the lookup that this program has just created a native path that one of these gave, which saves reading its
// folder again.
void NoteCreated(const std::string& native);

// Tells the lookup that this program has changed names in a native folder without asking for them before.
void NoteChanged(const std::string& folder);

}  // namespace discwright::host
