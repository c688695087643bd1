// A large file that is written under a temporary name and gets its own name when it is whole.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// Unless Commit succeeds, the destructor removes the unfinished file, and a file that has the name stays as it is.
class PartFile {
 public:
  virtual ~PartFile() = default;
  // Parts may be written in any order, and by several threads at once.
  virtual Status WriteAt(std::uint64_t position, std::span<const std::uint8_t> bytes) = 0;
  // Reports late write errors and gives the file its name, replacing a file that has it.
  virtual Status Commit() = 0;
};

// Starts a file under the name base::PartName(NAME). An unfinished file of that name, which another run has left or is
// still writing, is replaced, and the Commit of that run then fails (kExists). On Windows 95, 98 and Me it cannot be
// replaced while it is being written: that is a failure (kAccessDenied). Other files that killed runs left in the
// folder are deleted. A NAME that is no regular file is a failure (kWrongKind). Room for `size` bytes is set aside
// where the file system can, so that a full disk (kDiskFull), or a file that may not become so large
// (kTooLarge), is known at once.
Result<std::unique_ptr<PartFile>> CreatePartFile(std::string_view path, std::uint64_t size);

}  // namespace discwright::host
