// A large file that is written under the name NAME.part and becomes NAME when it is whole.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// Unless Commit succeeds, the destructor removes NAME.part, and a file that has the name NAME stays as it is.
class PartFile {
 public:
  virtual ~PartFile() = default;
  // Parts may be written in any order, and by several threads at once.
  virtual Status WriteAt(std::uint64_t position, std::span<const std::uint8_t> bytes) = 0;
  // Reports late write errors and gives the file its name, replacing a file that has it.
  virtual Status Commit() = 0;
};

// Starts a file. A NAME.part that another run has left or is still writing is replaced, and the Commit of that run then
// fails (kExists). On Windows 95, 98 and Me a NAME.part that is still being written cannot be replaced: that is a
// failure (kAccessDenied). A NAME that is no regular file is a failure (kWrongKind). Room for `size` bytes is set aside
// where the file system can, so that a full disk (kDiskFull), or a file that may not become so large (kTooLarge), is
// known at once.
Result<std::unique_ptr<PartFile>> CreatePartFile(std::string_view path, std::uint64_t size);

}  // namespace discwright::host
