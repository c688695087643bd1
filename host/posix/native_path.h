// Translates paths between the core's spelling and the system's. Nothing is looked up on the disk.
//
// The core separates with "\" or "/". The system separates with "/" and allows "\" inside a name; the core sees such a
// character as U+F05C, so that no name can be mistaken for a path. A name's own U+F05C or U+F05D gets a U+F05D before
// it. So two names of the system never become one in the core.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

// A core path as the system spells it: absolute (relative ones start at the current folder), without empty and "."
// components, ".." kept for the system to follow. Nothing is looked up. Empty for an empty path or one with a NUL.
std::string NativePath(std::string_view path);

// A system name (no separators) as the core sees it.
std::string CoreName(std::string_view native_name);

// The folder and the last component of an absolute native path; "/" is its own folder with an empty name.
std::string NativeFolder(const std::string& native);
std::string_view NativeName(std::string_view native);

// `name` inside the native folder.
std::string NativeJoin(std::string_view folder, std::string_view name);

}  // namespace discwright::host
