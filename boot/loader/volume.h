// The files of the volume that the loader was started from. The reader of CDs and the reader of floppies implement this
// interface.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "boot/loader/files.h"

namespace discwright::loader {

enum class VolumeError : std::uint8_t {
  kNone,
  kUnreadable,    // the drive failed
  kNoVolume,      // there is no file system of the kind that the reader knows
  kBadVolume,     // what describes the file system contradicts itself, or has no end
  kBlockSize,     // the file system counts in other units than the reader
  kBadFolder,     // a folder contradicts the file system
  kBadChain,      // the chain of a file's clusters ends too early, has no end, or has a cluster that cannot be in it
  kOutside,       // a file or folder reaches past the end of the volume
  kNotFound,      // no file or folder has this path
  kNotAFolder,    // it is a file
  kNotAFile,      // it is a folder
  kInParts,       // it is stored in several extents or interleaved, which the reader of CDs does not support
  kPastTheEnd,    // the file ends before the bytes that were asked for
  kNotEnoughRoom  // a buffer is too small
};
// Says for people what happened and, where that helps, what to do. The text does not name the file.
std::string_view Words(VolumeError error, Medium medium);

// A file or folder. Nothing in it was checked yet: the functions that use it do that.
struct VolumeEntry {
  std::uint32_t start = 0;  // the first sector of a CD or cluster of a floppy; of an empty file, it means nothing
  std::uint32_t size = 0;   // in bytes; 0 for a folder of a floppy
  bool is_folder = false;
  bool is_in_parts = false;  // see VolumeError::kInParts
};

class Volume {
 public:
  [[nodiscard]] virtual Medium medium() const = 0;

  // Must be called first.
  [[nodiscard]] virtual VolumeError Open() = 0;

  // Finds a file or folder. "\" and "/" both separate names; an empty path is the root. The letter case does not
  // matter.
  [[nodiscard]] virtual VolumeError Find(std::string_view path, VolumeEntry& found) = 0;

  // Reads the to.size() bytes of a file that begin at `offset`. Whole sectors go straight to `to`.
  [[nodiscard]] virtual VolumeError Read(const VolumeEntry& file, std::uint32_t offset, std::span<std::uint8_t> to) = 0;

  // Finds a file and reads all of it to the start of `to`.
  [[nodiscard]] VolumeError ReadFile(std::string_view path, std::span<std::uint8_t> to, std::uint32_t& size);

 protected:
  ~Volume() = default;
};

// Removes the first name and the separators before it from `path`. Returns the name; it is empty at the end.
std::string_view TakeName(std::string_view& path);

}  // namespace discwright::loader
