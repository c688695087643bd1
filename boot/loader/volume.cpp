// What the readers of all kinds of volumes share: the words for errors, names in paths, reading a whole file.
#include "boot/loader/volume.h"

namespace discwright::loader {

namespace {

bool IsSeparator(char letter) { return letter == '\\' || letter == '/'; }

}  // namespace

std::string_view Words(VolumeError error, Medium medium) {
  const bool is_cd = medium == Medium::kCd;
  switch (error) {
    case VolumeError::kNone:
      return "Nothing failed.";
    case VolumeError::kUnreadable:
      return is_cd ? "The drive cannot read it. Clean the CD, or try another drive."
                   : "The drive cannot read it. Write the image to another disk, or try another drive.";
    case VolumeError::kNoVolume:
      return is_cd ? "The CD has no ISO 9660 file system." : "The disk has no FAT12 file system.";
    case VolumeError::kBadVolume:
      return is_cd ? "The file system of the CD is damaged. Make the CD again."
                   : "The file system of the disk is damaged. Make the disk again.";
    case VolumeError::kBlockSize:
      return is_cd ? "The file system of the CD has blocks that are not 2,048 bytes long."
                   : "The file system of the disk has sectors that are not 512 bytes long.";
    case VolumeError::kBadFolder:
      return is_cd ? "A folder of the CD is damaged. Make the CD again."
                   : "A folder of the disk is damaged. Make the disk again.";
    case VolumeError::kBadChain:
      return "Its place in the file allocation table is damaged. Make the disk again.";
    case VolumeError::kOutside:
      return is_cd ? "It reaches past the end of the CD. Make the CD again."
                   : "It reaches past the end of the disk. Make the disk again.";
    case VolumeError::kNotFound:
      return is_cd ? "The CD has no such file or folder." : "The disk has no such file or folder.";
    case VolumeError::kNotAFolder:
      return "It is a file, not a folder.";
    case VolumeError::kNotAFile:
      return "It is a folder, not a file.";
    case VolumeError::kInParts:
      return "It is stored in several parts, which the loader cannot read.";
    case VolumeError::kPastTheEnd:
      return "The file is shorter than expected.";
    case VolumeError::kNotEnoughRoom:
      return "There is not enough memory for it.";
  }
  return "Unknown error.";
}

VolumeError Volume::ReadFile(std::string_view path, std::span<std::uint8_t> to, std::uint32_t& size) {
  VolumeEntry file;
  if (const VolumeError error = Find(path, file); error != VolumeError::kNone) return error;
  if (file.is_folder) return VolumeError::kNotAFile;
  size = file.size;
  return file.size <= to.size() ? Read(file, 0, to.first(file.size)) : VolumeError::kNotEnoughRoom;
}

std::string_view TakeName(std::string_view& path) {
  while (!path.empty() && IsSeparator(path.front())) path.remove_prefix(1);
  std::size_t size = 0;
  while (size < path.size() && !IsSeparator(path[size])) ++size;
  const std::string_view name(path.data(), size);
  path.remove_prefix(size);
  return name;
}

}  // namespace discwright::loader
