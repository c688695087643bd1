// The disk door for floppies: reads sectors by cylinder, head and sector.
#pragma once

#include "boot/loader/pc/piece_reader.h"

namespace discwright::loader {

class FloppyDisk final : public PieceReader {
 public:
  // `drive`: its number for INT 13h.
  explicit FloppyDisk(std::uint8_t drive) : PieceReader(drive, kFloppySectorSize, kMost) {}

  // Takes the geometry from the parameter block in the first sector. If that sector cannot be read, or its numbers
  // cannot be right, the geometry stays that of a floppy of 1.44 MB.
  void LearnGeometry();

 private:
  static constexpr std::size_t kMost = 63;  // more sectors than a track of any floppy has

  [[nodiscard]] std::size_t MostAt(std::uint32_t sector) const override;
  bool TryPiece(std::uint32_t sector, std::size_t count) override;

  std::uint32_t track_sectors_ = 18;
  std::uint32_t heads_ = 2;
};

}  // namespace discwright::loader
