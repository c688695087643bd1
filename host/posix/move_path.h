// Moving files and folders by native paths, joining folders that are on both sides.
#pragma once

#include <string>
#include <vector>

#include "host/status.h"

namespace discwright::host {

// Gives what stands at `from` the path `to`. A file there is overwritten, and a folder comes into the place of a link
// to a folder; a folder joins a folder, its names found there in any letter case. A link is moved itself. Missing
// folders on the way are made. kExists: a file is where a folder is needed; kWrongKind: a folder is where a file is
// needed; kLoop: `to` is in the folder itself.
// Each file and folder is moved whole or stays as it was, also across file systems; a failure ends the joining.
Status MovePath(const std::string& from, const std::string& to);

// Moves the things of these names, which are sorted, from one folder into another until one fails; both folders exist.
// A name there that differs only in letter case is the same name, but two names of one side stay two.
Status MoveNames(const std::string& from, const std::vector<std::string>& names, const std::string& to);

}  // namespace discwright::host
