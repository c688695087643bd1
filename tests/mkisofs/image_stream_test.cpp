// Tests of the stream that writes an image.
#include "tools/mkisofs/image_stream.h"

#include <gtest/gtest.h>

#include <mutex>
#include <new>
#include <numeric>

#include "host/threads.h"

namespace discwright::tools::mkisofs {
namespace {

// A file in memory that is full after `room` bytes.
class MemoryFile : public host::PartFile {
 public:
  explicit MemoryFile(std::size_t room = SIZE_MAX) : room_(room) {}
  host::Status WriteAt(std::uint64_t position, std::span<const std::uint8_t> bytes) override {
    const std::lock_guard lock(mutex_);
    if (position + bytes.size() > room_) return host::Status::Failure(host::ErrorClass::kDiskFull, "full");
    content.resize(std::max(content.size(), static_cast<std::size_t>(position) + bytes.size()));
    std::copy(bytes.begin(), bytes.end(), content.begin() + static_cast<std::ptrdiff_t>(position));
    return host::Status::Success();
  }
  host::Status Commit() override { return host::Status::Success(); }

  std::vector<std::uint8_t> content;

 private:
  host::Mutex mutex_;
  std::size_t room_;
};

std::vector<std::uint8_t> Counting(std::size_t size) {
  std::vector<std::uint8_t> bytes(size);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
  return bytes;
}

TEST(ImageStream, SmallAndLargeParts_ArriveInOrder) {
  MemoryFile file;
  ImageStream stream(file);
  std::vector<std::uint8_t> expected;
  for (const std::size_t size : {1u, 2047u, 2048u, 2049u, 262144u, 262145u, 3000000u, 0u, 5u}) {
    const auto bytes = Counting(size);
    stream.Append(bytes);
    stream.PadToSector();
    expected.insert(expected.end(), bytes.begin(), bytes.end());
    expected.resize((expected.size() + 2047) / 2048 * 2048);
    EXPECT_EQ(stream.position(), expected.size());
  }
  EXPECT_TRUE(stream.Flush().ok());
  EXPECT_EQ(file.content, expected);
}

TEST(ImageStream, RoomFilledPieceByPiece_BecomesTheImage) {
  MemoryFile file;
  ImageStream stream(file);
  std::size_t total = 0;
  for (std::size_t i = 1; i < 2000; ++i) {
    const auto room = stream.Room();
    ASSERT_FALSE(room.empty());
    const std::size_t count = std::min<std::size_t>(room.size(), i);
    std::fill_n(room.begin(), count, static_cast<std::uint8_t>(i));
    stream.Fill(count);
    total += count;
  }
  EXPECT_TRUE(stream.Flush().ok());
  EXPECT_EQ(file.content.size(), total);
}

TEST(ImageStream, FailedWrite_IsReportedAndDoesNotBlock) {
  MemoryFile file(1000000);
  ImageStream stream(file);
  stream.AppendZeros(20000000);
  EXPECT_EQ(stream.Flush().error, host::ErrorClass::kDiskFull);
  EXPECT_TRUE(stream.Failed());
  EXPECT_LE(file.content.size(), 1000000u);
}

TEST(ImageStream, ExceptionWhileWriting_IsAFailureOnBothThreads) {
  class FileWithoutMemory : public MemoryFile {
   public:
    host::Status WriteAt(std::uint64_t, std::span<const std::uint8_t>) override { throw std::bad_alloc(); }
  } file;
  ImageStream stream(file);
  stream.AppendZeros(20000000);
  EXPECT_EQ(stream.Flush().cause, "no memory left");
}

TEST(ImageStream, NothingAppended_IsAnEmptyImage) {
  MemoryFile file;
  ImageStream stream(file);
  EXPECT_TRUE(stream.Flush().ok());
  EXPECT_TRUE(file.content.empty());
}

}  // namespace
}  // namespace discwright::tools::mkisofs
