// The image as a stream of bytes that a second thread helps to write, so that reading files and writing overlap.
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

// Small files share a piece; a large one takes many. Used by one thread, which never waits for the other one while
// there is anything left to do: on a busy machine it writes by itself.
class ImageStream {
 public:
  // `file` must outlive the stream. Throws std::system_error when the system has no thread left.
  explicit ImageStream(host::PartFile& file);
  ImageStream(const ImageStream&) = delete;
  ImageStream& operator=(const ImageStream&) = delete;
  ~ImageStream();  // what was not flushed may be lost

  // Room for the next bytes of the image, never empty; it is the stream's until Fill or any other call.
  std::span<std::uint8_t> Room();
  void Fill(std::size_t count);  // the first bytes of Room are now part of the image

  void Append(std::span<const std::uint8_t> bytes);
  void AppendZeros(std::uint64_t count);
  void PadToSector();

  std::uint64_t position() const { return position_; }  // bytes of the image so far
  bool Failed();                                        // the rest would be written in vain
  host::Status Flush();                                 // until all is written; the first failure

 private:
  struct Piece {
    std::uint8_t* bytes = nullptr;  // null: there is none
    std::size_t used = 0;
    std::uint64_t position = 0;  // in the image
  };
  using Lock = std::unique_lock<host::Mutex>;

  void HandOver();
  void TakeFreePiece();
  void WriteOne(Lock& lock);
  void WritePieces();

  host::PartFile& file_;
  std::vector<std::uint8_t> memory_;
  Piece current_;  // the using thread's
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
