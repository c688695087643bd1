// The two folders of the program folder that every build empties: the workspace and the staging folder. A build makes
// them with MakeEmptiedFolder, which leaves a mark beside the folder. A folder without its mark may belong to the user
// and is never emptied. Call WhyNotEmptied before a build.
#pragma once

#include <functional>
#include <string>

#include "host/status.h"
#include "util/notes.h"
#include "util/program_folder.h"

namespace discwright::util {

// Why a build must not empty its two folders, as a message for the user. Empty when it may: they are missing, empty,
// links (which are deleted without their targets), or made by this program, and nothing is mounted in them.
std::string WhyNotEmptied();

// Makes the folder `item` (kWorkspace or kStaging), which is missing or may be emptied, and its mark. A mark names the
// identity of its folder. So it is not taken for the mark of another folder that later gets the same name. It is
// written while the folder is still empty: wherever a build is killed, a folder with anything in it has its mark. After
// a failure nothing may be put into the folder, because it may be a link that could not be deleted.
host::Status MakeEmptiedFolder(Item item);

// Deletes the folder `item` with everything in it, and then its mark. Notes what could not be deleted. `go_on` is asked
// before every file and folder; false ends the deletion at once.
void DeleteEmptiedFolder(Item item, Notes& notes, const std::function<bool()>& go_on = {});

// The one of the two folders that is at the path or above it, whatever links the path goes through; empty if neither
// is. What is at such a path would be deleted at the start of a build.
std::string EmptiedFolderAround(const std::string& path);

}  // namespace discwright::util
