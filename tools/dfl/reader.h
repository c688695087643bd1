// Reading a file piece by piece, with what happened on the way.
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

// Opens its file at the first read; the first failure stays. The tree and the file must outlive it.
class Reader {
 public:
  Reader(const Tree& tree, const File& file) : tree_(&tree), file_(&file) {}

  // The bytes from `position` to `end` or the file's end, as many as fit into a piece of memory: none at the end or
  // after a failure. They stay until the thread's next read into the same piece, `which` (0 or 1), by any reader.
  std::span<const std::byte> Read(std::int64_t position, std::int64_t end, std::size_t which);

  // Closes the file until the next read.
  void Close() { open_.reset(); }

  // True when everything could be read so far. A failure becomes a problem, once.
  bool Check(Problems& problems);

 private:
  const Tree* tree_;
  const File* file_;
  std::unique_ptr<host::BinaryFile> open_;
  host::Status status_;
  bool told_ = false;
};

}  // namespace discwright::tools::dfl
