// The disk door: reads sectors of the image from the drive that the machine was started from.
#pragma once

#include "boot/loader/sectors.h"

namespace discwright::loader {

class BiosDisk final : public Sectors {
 public:
  // `drive`: its number for INT 13h. A CD sector is 1 << `shift` sectors of the drive: 0 for a CD, 2 for a disk.
  struct Drive {
    std::uint8_t number;
    std::uint8_t shift;
  };

  explicit BiosDisk(Drive drive) : drive_(drive) {}

  bool Read(std::uint32_t sector, std::span<std::uint8_t> to) override;

  // What the BIOS said about the last read that failed; kShortRead when it read too little and reported success.
  [[nodiscard]] std::uint8_t LastError() const { return last_error_; }
  static constexpr std::uint8_t kShortRead = 0xFF;

 private:
  bool ReadPiece(std::uint32_t sector, std::size_t count);
  bool TryPiece(std::uint32_t sector, std::size_t count);
  void Reset() const;

  Drive drive_;
  std::size_t piece_ = 16;  // sectors per read: 32 KB, a size that every BIOS accepts
  std::uint8_t last_error_ = 0;
};

}  // namespace discwright::loader
