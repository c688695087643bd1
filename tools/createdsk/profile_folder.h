// Words and checks for the files of a profile folder, which CreateDisk and TakeOwnSystem share.
#pragma once

#include <string>
#include <string_view>

#include "host/status.h"
#include "tools/result.h"

namespace discwright::tools {

// Returns a path as messages show it.
std::string Shown(std::string_view path);

Result CannotRead(std::string_view path, const host::Status& status);

// Whether something may exist at a path although the attempt to look at it has ended with this failure.
bool CouldNotLook(const host::Status& status);

// Fails when a link leads from `path` out of the profile folder. A profile may come from another machine, and a link in
// it must not bring a file of this machine onto a disk.
Result StaysInProfile(const std::string& folder, const std::string& path);

}  // namespace discwright::tools
