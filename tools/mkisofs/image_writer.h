// Writes the image in the writing pass. WriteImage stores every part at the sectors that the sizing pass gave it.
#pragma once

#include <cstdint>
#include <functional>

#include "host/part_file.h"
#include "host/source_tree.h"
#include "tools/mkisofs/directory_records.h"
#include "tools/mkisofs/layout.h"
#include "tools/mkisofs/options.h"
#include "tools/mkisofs/progress.h"
#include "tools/mkisofs/tree.h"
#include "tools/result.h"

namespace discwright::tools::mkisofs {

struct ImageDates {
  std::int64_t created = 0;          // date of the volume; seconds since 1970-01-01 00:00 UTC
  TimeLimit records = kNoTimeLimit;  // latest date of a directory record
};

// Says what is written. `stopped` returns true when the user wants to end the run; it is called after every piece of a
// file.
struct ImagePlan {
  const Options& options;
  const Tree& tree;
  const Layout& layout;
  ImageDates dates;
  std::function<bool()> stopped;
};

// Writes the image. Fails with a sentence that names the file at fault. The caller must commit `file`, and only after
// success.
Result WriteImage(const ImagePlan& plan, host::SourceTree& source, host::PartFile& file, Progress& progress);

}  // namespace discwright::tools::mkisofs
