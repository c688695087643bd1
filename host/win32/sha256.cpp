// Computes the SHA-256 of files with this program's own code, because Windows 98 has no function for it.
#include "base/sha256.h"

#include "host/files.h"

namespace discwright::host {

Result<std::string> Sha256OfFile(std::string_view path, const std::function<bool()>& go_on) {
  base::Sha256 digest;
  Status status = ReadInPieces(path, [&](std::span<const std::byte> bytes) {
    digest.Add(bytes);
    return !go_on || go_on();
  });
  if (!status.ok()) return status;
  return digest.Finish();
}

}  // namespace discwright::host
