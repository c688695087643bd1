// Trees of files by native paths: what is in a folder, copying a tree exactly, removing one. Links in it are never
// followed.
#pragma once

#include <string>
#include <vector>

#include "host/status.h"

namespace discwright::host {

// Whether a folder stands there, or a link that leads to one.
bool IsFolder(const std::string& native);

// The names in a folder without "." and "..", sorted byte by byte.
Status NamesIn(const std::string& folder, std::vector<std::string>& names);

// Copies a file, a link or a folder with all below it to a name that is free, with times and modes, and with owners
// where the system lets them be given. Devices, sockets and pipes are a failure. A failure leaves a part of the copy.
Status CopyTree(const std::string& from, const std::string& to);

// Removes a file, a link or a folder with all below it, folders without the right to write to them included.
Status RemoveTree(const std::string& native);

}  // namespace discwright::host
