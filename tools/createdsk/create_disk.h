// Performs a whole run of CreateDsk. main() calls CreateDisk, which makes one floppy image file from a profile folder.
#pragma once

#include <string>
#include <string_view>

#include "tools/createdsk/arguments.h"
#include "tools/result.h"

namespace discwright::tools {

// Reads the folder files/disks/<profile>/ of the program folder and writes the image into the program folder, under the
// name that disk.ini gives it. Sets `image_path` to its path. A floppy image that already has this name is replaced; a
// file of any other kind is not. After a failure an older image is unchanged, and no part of a new one is left.
Result CreateDisk(const Arguments& arguments, std::string_view program_folder, std::string& image_path);

}  // namespace discwright::tools
