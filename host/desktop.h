// What the user's desktop gives: drives, the folder of Windows, a home folder, the file manager.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// The roots of the logical drives in the system's order: "C:\" on Windows, the one root "\" elsewhere.
std::vector<std::string> DriveRoots();

// The user's home folder where the system has no drive C: to start from. Empty on Windows.
std::string HomeFolder();

// The command line that shows a folder in the file manager. On Windows the text follows as it stands, without quotes,
// also when it holds blanks; elsewhere it is a core path, and an empty one is the home folder. Empty when the system
// has no file manager that this program knows to start.
std::string FileManagerLine(std::string_view folder);

}  // namespace discwright::host
