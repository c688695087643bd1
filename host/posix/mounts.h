// Reads the system's table of mounted file systems.
#pragma once

#include <string>
#include <vector>

namespace discwright::host {

// The native mount points of optical discs (file systems iso9660 and udf) in a file like /proc/self/mounts, in its
// order, each once. A header of its own so that the tests can give it other tables.
std::vector<std::string> OpticalMountPoints(const std::string& table_file);

// Whether the table names the native path, in which no link may be left, as a mount point.
bool IsInMountTable(const std::string& table_file, const std::string& native);

}  // namespace discwright::host
