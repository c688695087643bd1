// Reads the files of the script from the CD.
#include "boot/loader/cd_files.h"

#include <algorithm>

namespace discwright::loader {

bool CdFiles::Exists(std::string_view path) {
  IsoEntry entry;
  return volume_.Find(path, entry) == IsoError::kNone && !entry.is_folder;
}

FileText CdFiles::Read(std::string_view path, std::span<char> to) {
  IsoEntry entry;
  const IsoError found = volume_.Find(path, entry);
  if (found == IsoError::kNotFound || found == IsoError::kNotAFolder) return {ReadEnd::kNotFound, 0};
  if (found != IsoError::kNone) return {ReadEnd::kFailed, 0};
  if (entry.is_folder) return {ReadEnd::kNotFound, 0};
  const std::size_t size = std::min<std::size_t>(entry.size, to.size());
  // A character and a byte of memory have the same layout.
  const std::span<std::uint8_t> bytes(reinterpret_cast<std::uint8_t*>(to.data()), size);
  if (volume_.Read(entry, 0, bytes) != IsoError::kNone) return {ReadEnd::kFailed, 0};
  return {entry.size > to.size() ? ReadEnd::kTooLarge : ReadEnd::kRead, size};
}

}  // namespace discwright::loader
