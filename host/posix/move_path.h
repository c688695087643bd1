// Moves files and folders by native paths, and merges folders that exist on both sides. Call MovePath for one path, and
// MoveNames for several names of one folder.
#pragma once

#include <string>
#include <vector>

#include "host/status.h"

namespace discwright::host {

// Moves a file, folder or link from the path `from` to the path `to`. A file at `to` is overwritten, and a link to a
// folder is replaced by a folder. A folder is merged with a folder, in which names are found in any letter case. Links
// themselves are moved. Missing folders on the way are created. kExists: a file is where a folder is needed;
// kWrongKind: a folder is where a file is needed; kLoop: `to` is inside the folder itself.
// Each file and folder is moved completely or not at all, even to another file system. A merge ends at its first
// failure, except that after kExists and kWrongKind the other names are still moved.
Status MovePath(const std::string& from, const std::string& to);

// Moves the files and folders with these names, which must be sorted, from one existing folder to another. Ends at the
// first failure, except after kExists and kWrongKind: then the other names are still moved, and the first of these
// failures is returned. A name in `to` that differs only in letter case counts as the same name, but two names of one
// folder stay two.
Status MoveNames(const std::string& from, const std::vector<std::string>& names, const std::string& to);

}  // namespace discwright::host
