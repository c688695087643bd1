// Reads the tree to be mastered. ReadTree returns it, and adds everything that an image cannot hold to the problems.
#pragma once

#include "host/source_tree.h"
#include "tools/mkisofs/options.h"
#include "tools/mkisofs/problems.h"
#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

// Every entry of the source becomes a node or a problem; none is left out without a message. When `options` have a boot
// image, the boot catalogue is one of the nodes.
Tree ReadTree(host::SourceTree& source, const Options& options, Problems& problems);

}  // namespace discwright::tools::mkisofs
