// Finds and reads the files of a CD (ISO 9660 of every level, with its first volume from sector 16 on).
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "boot/loader/sectors.h"
#include "boot/loader/volume.h"

namespace discwright::loader {

// Gets the entries of a folder, one after the other.
class IsoVisitor {
 public:
  // `name` is as it stands on the CD, which may add ";1" or a period. It is valid during this call only. The visitor
  // must not use the volume, because the name stands in the volume's buffer. Returns false when it needs no more.
  virtual bool Visit(std::string_view name, const VolumeEntry& entry) = 0;

 protected:
  ~IsoVisitor() = default;
};

// The files of one CD. Entries that are marked as hidden or as associated files do not exist for it.
class IsoVolume final : public Volume {
 public:
  // `buffer` has room for one or more sectors. The volume uses it during each call.
  IsoVolume(Sectors& sectors, std::span<std::uint8_t> buffer);

  [[nodiscard]] Medium medium() const override { return Medium::kCd; }

  // If the CD has an enhanced descriptor, its names count; otherwise those of the primary one.
  [[nodiscard]] VolumeError Open() override;

  // Of several names that match, the one that is written exactly so is taken, then one that differs in its version
  // (";1") or a period at its end, then one that also differs in the case of letters A to Z. A version that only one of
  // the two names has is ignored.
  [[nodiscard]] VolumeError Find(std::string_view path, VolumeEntry& found) override;

  [[nodiscard]] VolumeError Read(const VolumeEntry& file, std::uint32_t offset, std::span<std::uint8_t> to) override;

  // Shows every entry of a folder but itself and its parent. A file in several parts is shown once.
  [[nodiscard]] VolumeError List(const VolumeEntry& folder, IsoVisitor& visitor);

 private:
  VolumeError CheckExtent(const VolumeEntry& entry) const;

  Sectors& sectors_;
  std::span<std::uint8_t> buffer_;  // whole sectors
  std::uint32_t sector_count_ = 0;  // of the volume
  VolumeEntry root_ = {};
};

}  // namespace discwright::loader
