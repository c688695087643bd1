// Reads a file piece by piece and keeps its first failure. Call Read until it returns no bytes, then Check.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "host/files.h"
#include "host/status.h"
#include "tools/dfl/problems.h"
#include "tools/dfl/tree.h"

namespace discwright::tools::dfl {

// Opens the file at the first read. The tree and the file must outlive the reader.
class Reader {
 public:
  Reader(const Tree& tree, const File& file) : tree_(&tree), file_(&file) {}

  // Returns the bytes from `position` up to `end`, the end of the file or the size of a buffer, whichever comes first.
  // Returns no bytes at the end of the file or after a failure. `which`, 0 or 1, selects one of two buffers that all
  // readers of a thread share. The bytes are valid until the thread's next read into the same buffer.
  std::span<const std::byte> Read(std::int64_t position, std::int64_t end, std::size_t which);

  // Closes the file until the next read.
  void Close() { open_.reset(); }

  // Whether all reads have succeeded so far. The first call after a failure adds a problem.
  bool Check(Problems& problems);

 private:
  const Tree* tree_;
  const File* file_;
  std::unique_ptr<host::BinaryFile> open_;
  host::Status status_;
  bool reported_ = false;
};

}  // namespace discwright::tools::dfl
