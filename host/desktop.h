// Where a user's search for files starts: drives, the home folder, the file manager.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// The roots of the logical drives in the system's order: "C:\" on Windows, the one root "\" elsewhere.
std::vector<std::string> DriveRoots();

// The drives that hold optical discs, in the system's order: "D:" on Windows, the mount point of each mounted optical
// disc elsewhere.
std::vector<std::string> OpticalDrives();

// The user's home folder where the system has no drive C: to start from. Empty on Windows.
std::string HomeFolder();

// The command line that shows a folder in the file manager. On Windows `folder` is put at the line's end as it is,
// without quotes, also when it holds blanks. Elsewhere it is a core path, and an empty one is the home folder. Empty
// when the system has no file manager that this program knows to start.
std::string FileManagerLine(std::string_view folder);

}  // namespace discwright::host
