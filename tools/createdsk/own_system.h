// Finds the user's own system for a disk, such as a DOS that cannot be shipped. Call TakeOwnSystem.
#pragma once

#include <string>

#include "tools/createdsk/profile.h"
#include "tools/result.h"

namespace discwright::tools {

// Looks into the folder that Own= of disk.ini names, and completes the profile with what lies there:
// - one floppy image *.img, which becomes the base, with its own boot sector
// - or system files, and a boot sector in the file bootsect.bin: the system files come first on the disk
// - or nothing, or the folder is missing: then the files of [WithoutOwn] are added
// Sets `is_own` in the first two cases. Fails with a sentence that says what to change in the folder. Does nothing if
// the profile has no Own=. `folder` is the profile folder.
Result TakeOwnSystem(const std::string& folder, Profile& profile, bool& is_own);

}  // namespace discwright::tools
