// Makes one floppy image file from a profile folder below the program folder.
#pragma once

#include <string>
#include <string_view>

#include "tools/createdsk/arguments.h"
#include "tools/createdsk/result.h"

namespace discwright::tools {

// Reads files/disks/<profile>/ of the program folder and writes the image that its disk.ini names into the program
// folder; `image_path` is its path then. After a failure an older image is as it was, and no part of a new one is left.
Result CreateDisk(const Arguments& arguments, std::string_view program_folder, std::string& image_path);

}  // namespace discwright::tools
