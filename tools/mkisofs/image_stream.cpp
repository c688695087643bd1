// Hands full pieces to the writing thread, or writes them itself when that thread is behind.
#include "tools/mkisofs/image_stream.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {
namespace {

// This size was the fastest in measurements: a piece stays in the processor's cache between reading and writing. Larger
// pieces need fewer system calls, but they are slower (see README.md).
constexpr std::size_t kPieceSize = 262144;
constexpr std::size_t kPieces = 8;  // at least 3: one is filled, one is written by the other thread, and one is free

}  // namespace

ImageStream::ImageStream(host::PartFile& file) : file_(file), memory_(kPieceSize * kPieces) {
  for (std::size_t i = 1; i < kPieces; ++i) free_.push_back(memory_.data() + i * kPieceSize);
  current_.bytes = memory_.data();
  writer_ = host::Thread([this] { WritePieces(); });
}

ImageStream::~ImageStream() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  handed_over_.NotifyOne();
  writer_.Join();
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
  Lock lock(mutex_);
  while (!full_.empty()) WriteOne(lock);
  while (being_written_ > 0) written_.Wait(mutex_);
  return status_;
}

void ImageStream::HandOver() {
  {
    const std::lock_guard lock(mutex_);
    full_.push_back(current_);
  }
  current_ = {};
  handed_over_.NotifyOne();
}

void ImageStream::TakeFreePiece() {
  Lock lock(mutex_);
  while (free_.empty()) WriteOne(lock);
  current_ = {free_.back(), 0, position_};
  free_.pop_back();
}

// An exception must not leave the writing thread. The text of its cause is so short that the string needs no memory
// from the heap.
host::Status ImageStream::Write(const Piece& piece) {
  try {
    return file_.WriteAt(piece.position, {piece.bytes, piece.used});
  } catch (const std::exception&) {
    return host::Status::Failure(host::ErrorClass::kOther, "no memory left");
  }
}

// Pieces may be written in any order, because each holds its position. After a failure they are freed without writing.
void ImageStream::WriteOne(Lock& lock) {
  const Piece piece = full_.front();
  full_.pop_front();
  if (status_.ok()) {
    ++being_written_;
    lock.unlock();
    host::Status written = Write(piece);
    lock.lock();
    --being_written_;
    if (status_.ok()) status_ = std::move(written);
  }
  free_.push_back(piece.bytes);
}

void ImageStream::WritePieces() {
  Lock lock(mutex_);
  for (;;) {
    while (!ended_ && full_.empty()) handed_over_.Wait(mutex_);
    if (ended_) return;
    WriteOne(lock);
    if (being_written_ == 0) written_.NotifyOne();
  }
}

}  // namespace discwright::tools::mkisofs
