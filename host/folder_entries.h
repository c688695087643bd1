// What each system says of the entries of a folder. ListFolder and Look are made of it, in host/list_folder.cpp; others
// call these two.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/files.h"

namespace discwright::host {

// The entries of a folder whose names are wanted, in any order. Only these are looked at. `loops` is never set.
Listing ReadEntries(std::string_view folder, const std::function<bool(const std::string& name)>& is_wanted);

// The entry at a path, broken links included. The failure is kNotFound when nothing is there. `loops` is never set.
Result<Entry> ReadEntry(std::string_view path);

}  // namespace discwright::host
