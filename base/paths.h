// Takes paths of the program apart and puts them together, as text: "\" or "/" between names, UTF-8. Nothing is looked
// up. InFolder("C:\\a", "b") is "C:\\a\\b".
#pragma once

#include <string>
#include <string_view>

namespace discwright::base {

std::string_view NameOf(std::string_view path);                       // what follows the last separator or drive
std::string SiblingOf(std::string_view path, std::string_view name);  // `name` in the same folder
std::string InFolder(std::string_view folder, std::string_view name);

// The length of the root that a path with "\" between its names starts with: 3 of "C:\", otherwise 1.
std::size_t RootLength(std::string_view path);

// The folder that an absolute path with "\" between its names is in; a root is its own.
std::string ParentFolder(std::string_view absolute);

// Whether Windows takes the path for a device, whatever its folder and extension: "nul", "C:\aux.txt", "\\.\X".
bool IsDevicePath(std::string_view path);

}  // namespace discwright::base
