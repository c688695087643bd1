// Writes a large file under a temporary name, and gives it its final name when it is complete. Call CreatePartFile,
// WriteAt for each part, and Commit.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// An unfinished file. Unless Commit succeeds, the destructor deletes it, and an existing file with the final name does
// not change.
class PartFile {
 public:
  virtual ~PartFile() = default;
  // Writes bytes at a byte position. Parts may be written in any order, and by several threads at once.
  virtual Status WriteAt(std::uint64_t position, std::span<const std::uint8_t> bytes) = 0;
  // Reports write errors that only show at the end, and gives the file its final name. Replaces an existing file of
  // that name.
  virtual Status Commit() = 0;
};

// Creates an unfinished file for `path`; its name is base::PartName of the final name. An unfinished file with this
// name, which another run has left or is still writing, is replaced; the Commit of that run then fails (kExists). On
// Windows 95, 98 and Me it cannot be replaced while it is being written; that is a failure (kAccessDenied). Other
// temporary files that killed runs have left in the folder are deleted. Fails with kWrongKind when `path` exists and is
// not a regular file. Reserves room for `size` bytes where the file system supports this, so that a full disk
// (kDiskFull), or a file that may not become so large (kTooLarge), is reported at once.
Result<std::unique_ptr<PartFile>> CreatePartFile(std::string_view path, std::uint64_t size);

}  // namespace discwright::host
