// Copying one file by native paths.
#pragma once

#include <string>

#include "host/files.h"

namespace discwright::host {

// CopyFileWithProgress of host/files.h for native paths and without progress; kExists when the target's name is taken.
Status CopyToFreeName(const std::string& from, const std::string& to);

}  // namespace discwright::host
