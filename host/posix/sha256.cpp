// The SHA-256 of files.
#include <openssl/evp.h>

#include <array>
#include <memory>
#include <vector>

#include "host/files.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/regular_file.h"

namespace discwright::host {
namespace {

using Digest = std::unique_ptr<EVP_MD_CTX, void (*)(EVP_MD_CTX*)>;

Status NoDigest() { return Status::Failure(ErrorClass::kOther, "SHA-256 is not available"); }

Status Feed(EVP_MD_CTX* digest, int fd, const std::function<bool()>& go_on) {
  std::vector<char> bytes(kReadPiece);
  for (;;) {
    if (go_on && !go_on()) return StoppedReading();
    const long got = ReadSome(fd, bytes.data(), bytes.size());
    if (got < 0) return LastFailure();
    if (got == 0) return Status::Success();
    if (EVP_DigestUpdate(digest, bytes.data(), static_cast<std::size_t>(got)) != 1) return NoDigest();
  }
}

std::string Hexadecimal(EVP_MD_CTX* digest) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> sum{};
  unsigned length = 0;
  if (EVP_DigestFinal_ex(digest, sum.data(), &length) != 1) return {};
  std::string text;
  for (unsigned i = 0; i < length; ++i) {
    text += "0123456789abcdef"[sum[i] >> 4];
    text += "0123456789abcdef"[sum[i] & 15];
  }
  return text;
}

}  // namespace

std::string Sha256OfFile(std::string_view path, Status& status, const std::function<bool()>& go_on) {
  const RegularFile file = OpenRegular(RealPath(path), O_RDONLY);
  status = file.status;
  if (!status.ok()) return {};
  const Digest digest(EVP_MD_CTX_new(), EVP_MD_CTX_free);
  const bool started = digest != nullptr && EVP_DigestInit_ex(digest.get(), EVP_sha256(), nullptr) == 1;
  status = started ? Feed(digest.get(), file.fd.get(), go_on) : NoDigest();
  std::string sum = status.ok() ? Hexadecimal(digest.get()) : std::string();
  if (status.ok() && sum.empty()) status = NoDigest();
  return sum;
}

}  // namespace discwright::host
