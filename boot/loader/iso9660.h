// Finds and reads the files of a CD (ISO 9660 of every level, with its first volume from sector 16 on).
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "boot/loader/sectors.h"

namespace discwright::loader {

enum class IsoError : std::uint8_t {
  kNone,
  kUnreadable,    // the drive failed
  kNoVolume,      // sector 16 begins no volume of ISO 9660
  kBadVolume,     // the volume's descriptors contradict ISO 9660, or have no end
  kBlockSize,     // the volume has blocks of another size than kSectorSize
  kBadFolder,     // a record of a folder contradicts ISO 9660
  kOutside,       // a file or folder reaches past the end of the volume
  kNotFound,      // no file or folder has this path
  kNotAFolder,    // it is a file
  kNotAFile,      // it is a folder
  kInParts,       // it is stored in several extents or interleaved, which this reader does not support
  kPastTheEnd,    // the file ends before the bytes that were asked for
  kNotEnoughRoom  // a buffer is too small
};
// Says for people what happened and, where that helps, what to do. The text does not name the file.
std::string_view Words(IsoError error);

// A file or folder of the CD. Nothing in it was checked yet: Read and List do that.
struct IsoEntry {
  std::uint32_t sector = 0;  // its first one; of an empty file, it means nothing
  std::uint32_t size = 0;    // in bytes
  bool is_folder = false;
  bool is_in_parts = false;  // see IsoError::kInParts
};

// Gets the entries of a folder, one after the other.
class IsoVisitor {
 public:
  // `name` is as it stands on the CD, which may add ";1" or a period. It is valid during this call only. The visitor
  // must not use the volume, because the name stands in the volume's buffer. Returns false when it needs no more.
  virtual bool Visit(std::string_view name, const IsoEntry& entry) = 0;

 protected:
  ~IsoVisitor() = default;
};

// The files of one CD. Entries that are marked as hidden or as associated files do not exist for it.
class IsoVolume {
 public:
  // `buffer` has room for one or more sectors. The volume uses it during each call.
  IsoVolume(Sectors& sectors, std::span<std::uint8_t> buffer);

  // Must be called first. If the CD has an enhanced descriptor, its names count; otherwise those of the primary one.
  [[nodiscard]] IsoError Open();

  // Finds a file or folder. "\" and "/" both separate names; an empty path is the root. Of several names that match,
  // the one that is written exactly so is taken, then one that differs in its version (";1") or a period at its end,
  // then one that also differs in the case of letters A to Z. A version that only one of the two names has is ignored.
  [[nodiscard]] IsoError Find(std::string_view path, IsoEntry& found);

  // Reads the to.size() bytes of a file that begin at `offset`. Whole sectors go straight to `to`.
  [[nodiscard]] IsoError Read(const IsoEntry& file, std::uint32_t offset, std::span<std::uint8_t> to);

  // Finds a file and reads all of it to the start of `to`.
  [[nodiscard]] IsoError ReadFile(std::string_view path, std::span<std::uint8_t> to, std::uint32_t& size);

  // Shows every entry of a folder but itself and its parent. A file in several parts is shown once.
  [[nodiscard]] IsoError List(const IsoEntry& folder, IsoVisitor& visitor);

 private:
  IsoError CheckExtent(const IsoEntry& entry) const;
  IsoError ReadInsideSector(std::uint32_t sector, std::size_t from, std::span<std::uint8_t> to);

  Sectors& sectors_;
  std::span<std::uint8_t> buffer_;  // whole sectors
  std::uint32_t sector_count_ = 0;  // of the volume
  IsoEntry root_ = {};
};

}  // namespace discwright::loader
