// Reads sectors with INT 13h, piece by piece through the bounce buffer, and repeats what fails. The disk doors for CDs
// and for floppies say how one piece is read.
#pragma once

#include "boot/loader/pc/bios.h"
#include "boot/loader/sectors.h"

namespace discwright::loader {

class PieceReader : public Sectors {
 public:
  bool Read(std::uint32_t sector, std::span<std::uint8_t> to) final;

  // The error that the BIOS reported for the last failed read; kShortRead if it read too little and reported success.
  [[nodiscard]] std::uint8_t LastError() const { return last_error_; }
  static constexpr std::uint8_t kShortRead = 0xFF;

 protected:
  // `drive`: its number for INT 13h. A piece has at most `most` sectors of `sector_size` bytes.
  PieceReader(std::uint8_t drive, std::size_t sector_size, std::size_t most)
      : drive_(drive), sector_size_(sector_size), piece_(most) {}
  ~PieceReader() = default;

  // How many sectors can be read at once from `sector` on.
  [[nodiscard]] virtual std::size_t MostAt(std::uint32_t sector) const = 0;
  // Reads sectors to the start of the bounce buffer.
  virtual bool TryPiece(std::uint32_t sector, std::size_t count) = 0;

  // Calls INT 13h for the drive and notes its error.
  bool CallBios(bios::Registers& registers);
  void NoteError(std::uint8_t error) { last_error_ = error; }

 private:
  bool ReadPiece(std::uint32_t sector, std::size_t count);

  std::uint8_t drive_;
  std::size_t sector_size_;
  std::size_t piece_;  // the most sectors per read
  std::uint8_t last_error_ = 0;
};

}  // namespace discwright::loader
