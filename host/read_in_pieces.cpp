// Reads files from start to end.
#include <algorithm>
#include <memory>
#include <vector>

#include "host/files.h"

namespace discwright::host {

Status ReadInPieces(std::string_view path, const std::function<bool(std::span<const std::byte>)>& take) {
  constexpr std::int64_t kPiece = 1 << 18;  // bytes per read; larger pieces are not faster
  const Result<std::unique_ptr<BinaryFile>> file = OpenBinary(path, OpenMode::kRead);
  if (!file.ok()) return file.status;
  const Result<std::int64_t> length = file.value->Length();
  if (!length.ok()) return length.status;
  std::vector<std::byte> piece(kPiece);
  for (std::int64_t position = 0; position < length.value; position += kPiece) {
    const auto bytes = std::span(piece).first(static_cast<std::size_t>(std::min(kPiece, length.value - position)));
    if (Status status = file.value->ReadAt(position, bytes); !status.ok()) return status;
    if (!take(bytes)) return StoppedReading();
  }
  return Status::Success();
}

}  // namespace discwright::host
