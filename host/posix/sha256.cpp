// Computes the SHA-256 of files with OpenSSL, because it uses the processor's own instructions.
#include <openssl/evp.h>

#include <array>
#include <memory>

#include "host/files.h"

namespace discwright::host {
namespace {

using Digest = std::unique_ptr<EVP_MD_CTX, void (*)(EVP_MD_CTX*)>;

std::string Hexadecimal(std::span<const unsigned char> bytes) {
  std::string text;
  for (const unsigned char byte : bytes) {
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 15];
  }
  return text;
}

}  // namespace

Result<std::string> Sha256OfFile(std::string_view path, const std::function<bool()>& go_on) {
  const Digest digest(EVP_MD_CTX_new(), EVP_MD_CTX_free);
  bool is_fed = digest != nullptr && EVP_DigestInit_ex(digest.get(), EVP_sha256(), nullptr) == 1;
  Status status = ReadInPieces(path, [&](std::span<const std::byte> bytes) {
    is_fed = is_fed && EVP_DigestUpdate(digest.get(), bytes.data(), bytes.size()) == 1;
    return is_fed && (!go_on || go_on());
  });
  std::array<unsigned char, EVP_MAX_MD_SIZE> sum{};
  unsigned length = 0;
  is_fed = is_fed && EVP_DigestFinal_ex(digest.get(), sum.data(), &length) == 1;
  if (!is_fed) status = Status::Failure(ErrorClass::kOther, "SHA-256 is not available");
  if (!status.ok()) return status;
  return Hexadecimal(std::span(sum).first(length));
}

}  // namespace discwright::host
