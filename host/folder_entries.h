// Reads the entries of folders from the system; each system has its own implementation. ListFolder and Look in
// host/list_folder.cpp are built on these functions. Call those two unless `loops` does not matter.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/files.h"

namespace discwright::host {

// The entries of a folder whose names `is_wanted` accepts, in any order. The system is not asked about other entries.
// `loops` is never set.
Listing ReadEntries(std::string_view folder, const std::function<bool(const std::string& name)>& is_wanted);

// The entry at a path. A broken link is an entry, too. The failure is kNotFound when there is no entry. `loops` is
// never set.
Result<Entry> ReadEntry(std::string_view path);

}  // namespace discwright::host
