// Reading the system's table of mounted file systems.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// The native mount points of optical discs (file systems iso9660 and udf) in a table like /proc/self/mounts, in its
// order, each once.
std::vector<std::string> OpticalMountPoints(std::string_view table);

}  // namespace discwright::host
