// The pass that writes an image whose layout is known.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/part_file.h"
#include "host/source_tree.h"
#include "tools/mkisofs/directory_records.h"
#include "tools/mkisofs/layout.h"
#include "tools/mkisofs/options.h"
#include "tools/mkisofs/progress.h"
#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

struct ImageDates {
  std::int64_t created = 0;  // of the volume; seconds since 1970-01-01 00:00 UTC
  TimeLimit records = kNoTimeLimit;
};

// Everything that an image is made of. `stopped` is asked from time to time whether the user wants to end the run.
struct ImagePlan {
  const Options& options;
  const Tree& tree;
  const Layout& layout;
  ImageDates dates;
  std::function<bool()> stopped;
};

// A sentence that names the file which failed; empty on success.
std::string WriteImage(const ImagePlan& plan, host::SourceTree& source, host::PartFile& file, Progress& progress);

}  // namespace discwright::tools::mkisofs
