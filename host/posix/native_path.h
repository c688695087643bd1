// Translates paths between the core's spelling and the system's: NativePath(core_path) and CoreName(native_name). These
// functions never look at the disk.
//
// The core separates names with "\" or "/". The system separates them with "/" only, and allows "\" inside a name. In
// the core such a character is U+F05C, so that no name is mistaken for a path. A U+F05D is put before each U+F05C or
// U+F05D that belongs to the name itself. So two different names of the system never become the same name in the core.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

// A core path in the system's spelling: absolute (a relative path starts at the current folder), and without empty and
// "." components. ".." stays, for the system to follow. Empty for an empty path or one with a NUL.
std::string NativePath(std::string_view path);

// A name of the system, without separators, in the core's spelling.
std::string CoreName(std::string_view native_name);

// The folder and the last component of an absolute native path. The folder of "/" is "/", and its last component is
// empty.
std::string NativeFolder(const std::string& native);
std::string_view NativeName(std::string_view native);

// The path of `name` in the native folder.
std::string NativeJoin(std::string_view folder, std::string_view name);

}  // namespace discwright::host
