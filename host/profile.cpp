// Profile files as text: each call reads or rewrites the whole file.
#include "host/profile.h"

#include "base/ini_text.h"
#include "host/files.h"
#include "host/native_text.h"

namespace discwright::host {

std::optional<std::string> ReadTextProfile(std::string_view file, std::string_view section, std::string_view key) {
  std::string bytes;
  if (!ReadWholeFile(file, bytes).ok()) return std::nullopt;
  return base::FindIniValue(DecodeText(bytes), section, key);
}

Status WriteTextProfile(std::string_view file, std::string_view section, std::string_view key, std::string_view value) {
  std::string bytes;
  Status status = ReadWholeFile(file, bytes);
  // A file that is there but cannot be read must not be replaced by one key.
  if (!status.ok() && status.error != ErrorClass::kNotFound) return status;
  return WriteWholeFile(file, EncodeText(base::WithIniValue(DecodeText(bytes), section, key, value)));
}

}  // namespace discwright::host
