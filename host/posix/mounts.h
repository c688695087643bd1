// Reads the system's table of mounted file systems. Pass "/proc/self/mounts"; the tests pass tables of their own.
#pragma once

#include <string>
#include <vector>

namespace discwright::host {

// The native mount points of optical discs (file systems iso9660 and udf), in the order of the table, each only once.
// `table_file` is a file in the format of /proc/self/mounts.
std::vector<std::string> OpticalMountPoints(const std::string& table_file);

// Whether the table contains the native path as a mount point. The path must not go through links.
bool IsInMountTable(const std::string& table_file, const std::string& native);

}  // namespace discwright::host
