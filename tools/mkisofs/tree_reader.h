// Reads the tree to be mastered and finds what an image cannot hold.
#pragma once

#include "host/source_tree.h"
#include "tools/mkisofs/options.h"
#include "tools/mkisofs/problems.h"
#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

// Every entry becomes a node or a problem: nothing is left out in silence. With a boot image in `options`, the boot
// catalogue is one of the nodes.
Tree ReadTree(host::SourceTree& source, const Options& options, Problems& problems);

}  // namespace discwright::tools::mkisofs
