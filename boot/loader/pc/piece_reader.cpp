// Divides reads into pieces, and repeats pieces that fail.
#include "boot/loader/pc/piece_reader.h"

#include <algorithm>
#include <cstring>

#include "boot/loader/pc/places.h"

namespace discwright::loader {

namespace {

constexpr int kTries = 4;  // a floppy drive may need three until its motor runs

}  // namespace

bool PieceReader::Read(std::uint32_t sector, std::span<std::uint8_t> to) {
  while (!to.empty()) {
    const std::size_t count = std::min({piece_, to.size() / sector_size_, MostAt(sector)});
    if (count == 0 || sector > UINT32_MAX - count) return false;
    if (!ReadPiece(sector, count)) {
      if (piece_ == 1) return false;
      piece_ = 1;  // some drives read a bad disc sector by sector only
      continue;
    }
    std::memcpy(to.data(), bounce_buffer, count * sector_size_);
    to = to.subspan(count * sector_size_);
    sector += static_cast<std::uint32_t>(count);
  }
  return true;
}

bool PieceReader::ReadPiece(std::uint32_t sector, std::size_t count) {
  for (int turn = 0; turn < kTries; ++turn) {
    if (TryPiece(sector, count)) return true;
    bios::Registers reset{.edx = drive_};
    bios::Call(bios::kDiskInterrupt, reset);
  }
  return false;
}

bool PieceReader::CallBios(bios::Registers& registers) {
  registers.edx |= drive_;
  bios::Call(bios::kDiskInterrupt, registers);
  if (!registers.Has(bios::kCarry)) return true;
  last_error_ = static_cast<std::uint8_t>(registers.eax >> 8);
  return false;
}

}  // namespace discwright::loader
