// Finds mounted optical discs in the system's table of file systems.
#pragma once

#include <string>
#include <vector>

namespace discwright::host {

// The native mount points of optical discs (file systems iso9660 and udf) in a file like /proc/self/mounts, in its
// order, each once. A header of its own so that the tests can give it other tables.
std::vector<std::string> OpticalMountPoints(const std::string& table_file);

}  // namespace discwright::host
