// How names and paths are spelled: by the user, by the system, on a disc, and without letter case.
//
// Inside the program all paths are the core's. PathFromNative(what the user typed) makes one; PathToNative(path) is for
// showing.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

// A path as the user or the system spells it, in the core's spelling and made absolute; and back. Both are text like
// any other here: UTF-8, or the host's raw bytes.
std::string PathFromNative(std::string_view native);
std::string PathToNative(std::string_view path);

// The 8.3 form of an existing path; empty when the system has none (always, off Windows).
std::string ShortPath(std::string_view path);

// The name that a file or folder of a setup CD has on the disc. Those discs name all in upper case, which some systems
// show in lower case. There a name without an upper-case letter becomes upper case. Elsewhere, and with a mixed name,
// it is the name itself.
std::string NameOnDisc(std::string_view name);

// A text without letter case, for comparing names: two names are one on a CD when their folded forms are equal.
std::string FoldCase(std::string_view text);

}  // namespace discwright::host
