// Writes the image as a stream of bytes. A second thread does the writing, so that it overlaps with reading the files.
// Call Append, or Room and Fill, for all bytes in order, then Flush once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <span>
#include <vector>

#include "host/part_file.h"
#include "host/threads.h"

namespace discwright::tools::mkisofs {

// The bytes are collected in pieces of a fixed size: small files share a piece, a large file takes many. One thread
// uses the stream. When the writing thread is behind, because the machine is busy, the using thread writes a piece
// itself instead of waiting.
class ImageStream {
 public:
  // `file` must outlive the stream. Throws std::system_error when the system has no thread left.
  explicit ImageStream(host::PartFile& file);
  ImageStream(const ImageStream&) = delete;
  ImageStream& operator=(const ImageStream&) = delete;
  ~ImageStream();  // bytes that were not flushed may be lost

  // Returns memory for the next bytes of the image; it is never empty. It is valid until the next call of any function.
  std::span<std::uint8_t> Room();
  void Fill(std::size_t count);  // appends the first `count` bytes of Room

  void Append(std::span<const std::uint8_t> bytes);
  void AppendZeros(std::uint64_t count);
  void PadToSector();

  std::uint64_t position() const { return position_; }  // bytes of the image so far
  bool Failed();                                        // whether a piece could not be written
  host::Status Flush();                                 // waits until all is written; returns the first failure

 private:
  struct Piece {
    std::uint8_t* bytes = nullptr;  // null when the using thread holds no piece
    std::size_t used = 0;
    std::uint64_t position = 0;  // the place of its first byte in the image
  };
  using Lock = std::unique_lock<host::Mutex>;

  void HandOver();
  void TakeFreePiece();
  host::Status Write(const Piece& piece);
  void WriteOne(Lock& lock);
  void WritePieces();

  host::PartFile& file_;
  std::vector<std::uint8_t> memory_;
  Piece current_;  // the piece that the using thread fills
  std::uint64_t position_ = 0;

  host::Mutex mutex_;  // guards everything below
  host::Condition handed_over_;
  host::Condition written_;
  std::vector<std::uint8_t*> free_;
  std::deque<Piece> full_;
  std::size_t being_written_ = 0;
  bool ended_ = false;
  host::Status status_;
  host::Thread writer_;
};

}  // namespace discwright::tools::mkisofs
