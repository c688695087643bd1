// Splits and joins paths of the program. They are UTF-8 texts with "\" or "/" between the names. These functions never
// look at the disk. InFolder("C:\\a", "b") returns "C:\\a\\b".
#pragma once

#include <string>
#include <string_view>

namespace discwright::base {

std::string_view NameOf(std::string_view path);                       // the text after the last separator or drive
std::string SiblingOf(std::string_view path, std::string_view name);  // `name` in the same folder
std::string InFolder(std::string_view folder, std::string_view name);

// The length of the root of a path with "\" between its names: 3 for a path that starts with "C:\", otherwise 1.
std::size_t RootLength(std::string_view path);

// The folder that contains the file or folder at an absolute path with "\" between its names. For a root, the root.
std::string ParentFolder(std::string_view absolute);

// Whether the path names a device on Windows: "nul", "C:\aux.txt" or "\\.\X". The folder and the extension of a device
// name do not matter.
bool IsDevicePath(std::string_view path);

}  // namespace discwright::base
