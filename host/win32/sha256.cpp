// The SHA-256 of files.
#include "base/sha256.h"

#include <algorithm>
#include <vector>

#include "host/files.h"

namespace discwright::host {

std::string Sha256OfFile(std::string_view path, Status& status, const std::function<bool()>& go_on) {
  constexpr std::int64_t kPiece = 1 << 18;  // bytes per read
  const std::unique_ptr<BinaryFile> file = OpenBinary(path, OpenMode::kRead, status);
  if (file == nullptr) return {};
  const std::int64_t length = file->Length();
  if (length < 0) status = Status::Failure(ErrorClass::kNotReady, "its length cannot be read");
  base::Sha256 digest;
  std::vector<std::byte> piece(kPiece);
  for (std::int64_t position = 0; status.ok() && position < length; position += kPiece) {
    if (go_on && !go_on()) status = StoppedReading();
    if (!status.ok()) break;
    const auto bytes = std::span(piece).first(static_cast<std::size_t>(std::min(kPiece, length - position)));
    status = file->ReadAt(position, bytes);
    if (status.ok()) digest.Add(bytes);
  }
  return status.ok() ? digest.Finish() : std::string();
}

}  // namespace discwright::host
