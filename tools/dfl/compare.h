// Proving byte by byte which files are equal.
#pragma once

#include <cstddef>
#include <vector>

#include "tools/dfl/problems.h"
#include "tools/dfl/tree.h"

namespace discwright::tools::dfl {

// So many files are read side by side and stay open meanwhile. A larger group is better split by digests before.
inline constexpr std::size_t kSideBySide = 32;

// The sets of two and more files of a group that are equal to their set's first file, as far as that did not change in
// between. The order of the files inside a set is the group's. What cannot be read becomes a problem and is left out.
std::vector<Group> EqualFiles(Group group, const Tree& tree, Problems& problems);

}  // namespace discwright::tools::dfl
