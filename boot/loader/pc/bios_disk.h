// The disk door for images of CDs: reads their sectors from the drive that the machine was started from, which may be a
// CD drive, a stick or a hard disk.
#pragma once

#include "boot/loader/pc/piece_reader.h"

namespace discwright::loader {

class BiosDisk final : public PieceReader {
 public:
  // `drive`: its number for INT 13h. A CD sector is 1 << `shift` sectors of the drive: 0 for a CD, 2 for a disk.
  struct Drive {
    std::uint8_t number;
    std::uint8_t shift;
  };

  explicit BiosDisk(Drive drive) : PieceReader(drive.number, kSectorSize, kMost), shift_(drive.shift) {}

 private:
  static constexpr std::size_t kMost = 16;  // 32 KB, a size that every BIOS accepts

  [[nodiscard]] std::size_t MostAt(std::uint32_t /*sector*/) const override { return kMost; }
  bool TryPiece(std::uint32_t sector, std::size_t count) override;

  std::uint8_t shift_;
};

}  // namespace discwright::loader
