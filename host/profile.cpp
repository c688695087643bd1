// Reads and writes profile files as text. Each call reads or rewrites the whole file.
#include "host/profile.h"

#include "base/ini_text.h"
#include "host/files.h"
#include "host/native_text.h"

namespace discwright::host {

ProfileValue ReadTextProfile(std::string_view file, std::string_view section, std::string_view key) {
  const Result<std::string> bytes = ReadWholeFile(file);
  if (bytes.status.error == ErrorClass::kNotFound) return ProfileValue();
  return bytes.ok() ? ProfileValue(base::FindIniValue(DecodeText(bytes.value), section, key)) : bytes.status;
}

Status WriteTextProfile(std::string_view file, std::string_view section, std::string_view key, std::string_view value) {
  const Result<std::string> bytes = ReadWholeFile(file);
  // A file that exists but cannot be read must not be replaced by a file with only this key.
  if (!bytes.ok() && bytes.status.error != ErrorClass::kNotFound) return bytes.status;
  return WriteWholeFile(file, EncodeText(base::WithIniValue(DecodeText(bytes.value), section, key, value)));
}

}  // namespace discwright::host
