// Reads the pieces of a file into buffers. Each thread has its own buffers, and all its readers share them.
#include "tools/dfl/reader.h"

#include <algorithm>
#include <array>

#include "host/hard_links.h"

namespace discwright::tools::dfl {
namespace {

// In bytes. Two pieces fit into the cache of a processor core.
constexpr std::int64_t kPieceSize = std::int64_t{128} * 1024;
using Piece = std::array<std::byte, kPieceSize>;

Piece& Memory(std::size_t which) {
  thread_local const auto pieces = std::make_unique<std::array<Piece, 2>>();
  return (*pieces)[which];
}

}  // namespace

std::span<const std::byte> Reader::Read(std::int64_t position, std::int64_t end, std::size_t which) {
  Piece& memory = Memory(which);
  const std::int64_t left = std::min(end, file_->facts.size) - position;
  const auto size = static_cast<std::size_t>(std::clamp<std::int64_t>(left, 0, kPieceSize));
  const std::span<std::byte> bytes = std::span(memory).first(size);
  if (open_ == nullptr && status_.ok()) {
    host::Result<std::unique_ptr<host::BinaryFile>> opened =
        host::OpenUnchanged(tree_->Path(file_->names[0]), file_->facts);
    open_ = std::move(opened.value);
    status_ = std::move(opened.status);
  }
  if (status_.ok()) status_ = open_->ReadAt(position, bytes);
  return status_.ok() ? bytes : std::span<std::byte>();
}

bool Reader::Check(Problems& problems) {
  if (!status_.ok() && !reported_) {
    problems.Add(file_->names[0], tree_->Path(file_->names[0]), "cannot be read", status_);
    reported_ = true;
  }
  return status_.ok();
}

}  // namespace discwright::tools::dfl
