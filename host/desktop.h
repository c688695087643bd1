// Finds the places where a user starts to look for files: call DriveRoots, OpticalDrives or HomeFolder. DataHome is
// where programs keep data of the user. FileManagerLine makes the line that starts the file manager.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// The roots of the logical drives in the order of the system: on Windows for example "C:\", on other systems only the
// root "\".
std::vector<std::string> DriveRoots();

// The drives for optical discs in the order of the system: on Windows for example "D:", on other systems the mount
// point of each mounted optical disc.
std::vector<std::string> OpticalDrives();

// The user's home folder. Empty on Windows, where the user starts at drive C: instead.
std::string HomeFolder();

// The folder in which programs keep the data of this user, without a separator at its end. It may be missing. Empty on
// Windows, and when the system knows no home folder of the user.
std::string DataHome();

// The command line that shows a folder in the file manager. On Windows `folder` is added at the end of the line without
// quotes, even when it contains blanks. On other systems `folder` is a core path, and an empty one stands for the home
// folder. The result is empty when the system has no file manager that this program can start.
std::string FileManagerLine(std::string_view folder);

}  // namespace discwright::host
