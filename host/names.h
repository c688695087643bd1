// Converts names and paths between the spellings of the core, the system and a disc, and folds letter case.
//
// Inside the program all paths are core paths. PathFromNative makes one from the text that the user has typed;
// PathToNative makes the text to show.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

// PathFromNative converts a path in the spelling of the user or the system to the core's spelling, and makes it
// absolute; PathToNative converts it back. Both take and return UTF-8, or the raw bytes of the system.
std::string PathFromNative(std::string_view native);
std::string PathToNative(std::string_view path);

// The short (8.3) form of an existing path. Empty when the system has none, and always on systems other than Windows.
std::string ShortPath(std::string_view path);

// The name that a file or folder of a setup CD has on the disc. All names on these discs are in upper case, but some
// systems show them in lower case. On those systems a name without an upper-case letter is converted to upper case. In
// all other cases the result is the name itself.
std::string NameOnDisc(std::string_view name);

// The text in a form without letter case, for comparing names: two names are the same on a CD when their folded forms
// are equal.
std::string FoldCase(std::string_view text);

}  // namespace discwright::host
