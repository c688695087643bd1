// Finds the equal files of a group by comparing them byte by byte. Call EqualFiles.
#pragma once

#include <cstddef>
#include <vector>

#include "tools/dfl/problems.h"
#include "tools/dfl/tree.h"

namespace discwright::tools::dfl {

// The largest number of files that are open and compared at once. SplitByDigest makes larger groups smaller first.
inline constexpr std::size_t kSideBySide = 32;

// Splits a group into sets of two or more equal files, each in the order of the group. Files equal to no other are left
// out. A file that cannot be read becomes a problem and is left out, too. The sets are reliable only while their first
// file stays unchanged.
std::vector<Group> EqualFiles(Group group, const Tree& tree, Problems& problems);

}  // namespace discwright::tools::dfl
