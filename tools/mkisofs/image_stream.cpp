// Hands full pieces to the writing thread and takes empty ones back.
#include "tools/mkisofs/image_stream.h"

#include <algorithm>

#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {
namespace {

// Measured: pieces that stay in a processor's cache between being read and being written are the fastest, although
// larger ones need fewer calls.
constexpr std::size_t kPieceSize = 262144;
constexpr std::size_t kPieces = 4;

}  // namespace

ImageStream::ImageStream(host::PartFile& file) : file_(file), memory_(kPieceSize * kPieces) {
  for (std::size_t i = 1; i < kPieces; ++i) free_.push_back(memory_.data() + i * kPieceSize);
  current_.bytes = memory_.data();
  writer_ = std::thread([this] { WritePieces(); });
}

ImageStream::~ImageStream() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  changed_.notify_all();
  writer_.join();
}

std::span<std::uint8_t> ImageStream::Room() {
  if (current_.bytes == nullptr) TakeFreePiece();
  return {current_.bytes + current_.used, kPieceSize - current_.used};
}

void ImageStream::Fill(std::size_t count) {
  current_.used += count;
  position_ += count;
  if (current_.used == kPieceSize) HandOver();
}

void ImageStream::Append(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const std::span<std::uint8_t> room = Room();
    const std::size_t count = std::min(room.size(), bytes.size());
    std::copy_n(bytes.begin(), count, room.begin());
    Fill(count);
    bytes = bytes.subspan(count);
  }
}

void ImageStream::AppendZeros(std::uint64_t count) {
  while (count > 0) {
    const std::span<std::uint8_t> room = Room();
    const std::size_t now = static_cast<std::size_t>(std::min<std::uint64_t>(room.size(), count));
    std::fill_n(room.begin(), now, std::uint8_t{0});
    Fill(now);
    count -= now;
  }
}

void ImageStream::PadToSector() { AppendZeros(SectorsFor(position_) * kSectorSize - position_); }

bool ImageStream::Failed() {
  const std::lock_guard lock(mutex_);
  return !status_.ok();
}

host::Status ImageStream::Flush() {
  if (current_.used > 0) HandOver();
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return full_.empty() && !writing_; });
  return status_;
}

void ImageStream::HandOver() {
  {
    const std::lock_guard lock(mutex_);
    full_.push_back(current_);
  }
  current_ = {};
  changed_.notify_all();
}

void ImageStream::TakeFreePiece() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return !free_.empty(); });
  current_.bytes = free_.back();
  free_.pop_back();
}

void ImageStream::WritePieces() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return ended_ || !full_.empty(); });
    if (ended_) return;
    const Piece piece = full_.front();
    full_.pop_front();
    // After a failure pieces are only given back, so that the reading thread never waits for ever.
    if (status_.ok()) {
      writing_ = true;
      lock.unlock();
      const host::Status written = file_.Append({piece.bytes, piece.used});
      lock.lock();
      writing_ = false;
      status_ = written;
    }
    free_.push_back(piece.bytes);
    changed_.notify_all();
  }
}

}  // namespace discwright::tools::mkisofs
