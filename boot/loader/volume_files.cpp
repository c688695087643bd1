// Reads the files of the script from a volume.
#include "boot/loader/volume_files.h"

#include <algorithm>

namespace discwright::loader {

bool VolumeFiles::Exists(std::string_view path) {
  VolumeEntry entry;
  return volume_.Find(path, entry) == VolumeError::kNone && !entry.is_folder;
}

FileText VolumeFiles::Read(std::string_view path, std::span<char> to) {
  VolumeEntry entry;
  const VolumeError found = volume_.Find(path, entry);
  if (found == VolumeError::kNotFound || found == VolumeError::kNotAFolder) return {ReadEnd::kNotFound, 0};
  if (found != VolumeError::kNone) return {ReadEnd::kFailed, 0};
  if (entry.is_folder) return {ReadEnd::kNotFound, 0};
  const std::size_t size = std::min<std::size_t>(entry.size, to.size());
  // A character and a byte of memory have the same layout.
  const std::span<std::uint8_t> bytes(reinterpret_cast<std::uint8_t*>(to.data()), size);
  if (volume_.Read(entry, 0, bytes) != VolumeError::kNone) return {ReadEnd::kFailed, 0};
  return {entry.size > to.size() ? ReadEnd::kTooLarge : ReadEnd::kRead, size};
}

}  // namespace discwright::loader
