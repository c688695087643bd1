// Reads files from their start to their end.
#include <algorithm>
#include <memory>
#include <vector>

#include "host/files.h"

namespace discwright::host {

Status ReadInPieces(std::string_view path, const std::function<bool(std::span<const std::byte>)>& take) {
  constexpr std::int64_t kPiece = 1 << 18;  // bytes per read; larger ones are not faster
  Status status;
  const std::unique_ptr<BinaryFile> file = OpenBinary(path, OpenMode::kRead, status);
  if (file == nullptr) return status;
  const std::int64_t length = file->Length();
  if (length < 0) return Status::Failure(ErrorClass::kNotReady, "The length of the file cannot be read");
  std::vector<std::byte> piece(kPiece);
  for (std::int64_t position = 0; position < length; position += kPiece) {
    const auto bytes = std::span(piece).first(static_cast<std::size_t>(std::min(kPiece, length - position)));
    status = file->ReadAt(position, bytes);
    if (!status.ok()) return status;
    if (!take(bytes)) return StoppedReading();
  }
  return Status::Success();
}

}  // namespace discwright::host
