// Finds the names that belong to one file, so that its data are stored once.
#pragma once

#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

// Of the names of one file the first in the tree keeps the data; the others become data_of_other.
void ShareData(Tree& tree);

}  // namespace discwright::tools::mkisofs
