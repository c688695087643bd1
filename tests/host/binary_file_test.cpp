// Files read and written at positions, and their checksums.
#include <gmock/gmock.h>

#include <cstring>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::BytesOfSize;
using testing::SmallDisk;
using testing::TempFolder;

std::span<const std::byte> Bytes(std::string_view text) { return std::as_bytes(std::span(text)); }

std::string ReadText(BinaryFile& file, std::int64_t position, std::size_t length) {
  std::string text(length, '\0');
  const Status status = file.ReadAt(position, std::as_writable_bytes(std::span(text)));
  return status.ok() ? text : "<" + status.cause + ">";
}

TEST(OpenBinary, ReadMode_ReadsAtPositions) {
  const TempFolder folder;
  folder.Write("File", "0123456789");
  Status status;
  const auto file = OpenBinary(folder.Core("FILE"), OpenMode::kRead, status);
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(status.ok());
  EXPECT_EQ(file->Length(), 10);
  EXPECT_EQ(ReadText(*file, 7, 3), "789");
  EXPECT_EQ(ReadText(*file, 0, 2), "01");
  EXPECT_EQ(ReadText(*file, 10, 0), "");
}

TEST(OpenBinary, ReadPastTheEnd_IsAFailure) {
  const TempFolder folder;
  folder.Write("file", "0123");
  Status status;
  const auto file = OpenBinary(folder.Core("file"), OpenMode::kRead, status);
  std::string text(3, '\0');
  EXPECT_FALSE(file->ReadAt(2, std::as_writable_bytes(std::span(text))).ok());
}

TEST(OpenBinary, WriteToAFileOpenedForReading_IsAFailure) {
  const TempFolder folder;
  folder.Write("file", "0123");
  Status status;
  const auto file = OpenBinary(folder.Core("file"), OpenMode::kRead, status);
  EXPECT_FALSE(file->WriteAt(0, Bytes("x")).ok());
  EXPECT_EQ(folder.Read("file"), "0123");
}

TEST(OpenBinary, ReadWriteMode_KeepsTheTailOfALongerFile) {
  const TempFolder folder;
  folder.Write("file", "0123456789");
  Status status;
  const auto file = OpenBinary(folder.Core("file"), OpenMode::kReadWrite, status);
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(file->WriteAt(2, Bytes("ab")).ok());
  EXPECT_EQ(folder.Read("file"), "01ab456789");
  EXPECT_EQ(ReadText(*file, 1, 4), "1ab4");
}

TEST(OpenBinary, ReadWriteMode_MakesAMissingFileAndGrowsIt) {
  const TempFolder folder;
  Status status;
  const auto file = OpenBinary(folder.Core("New"), OpenMode::kReadWrite, status);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->Length(), 0);
  EXPECT_TRUE(file->WriteAt(3, Bytes("x")).ok());
  EXPECT_EQ(file->Length(), 4);
  EXPECT_EQ(folder.Read("New"), std::string("\0\0\0x", 4));
}

TEST(OpenBinary, CreateEmptyMode_TruncatesOrMakes) {
  const TempFolder folder;
  folder.Write("old", "content");
  Status status;
  EXPECT_NE(OpenBinary(folder.Core("old"), OpenMode::kCreateEmpty, status), nullptr);
  EXPECT_NE(OpenBinary(folder.Core("new"), OpenMode::kCreateEmpty, status), nullptr);
  EXPECT_EQ(folder.Read("old"), "");
  EXPECT_EQ(folder.Read("new"), "");
}

TEST(OpenBinary, MissingFileOrFolder_IsNotFound) {
  const TempFolder folder;
  Status status;
  EXPECT_EQ(OpenBinary(folder.Core("missing"), OpenMode::kRead, status), nullptr);
  EXPECT_EQ(status.error, ErrorClass::kNotFound);
  EXPECT_EQ(OpenBinary(folder.Core("missing\\file"), OpenMode::kCreateEmpty, status), nullptr);
  EXPECT_EQ(status.error, ErrorClass::kNotFound);
}

TEST(OpenBinary, Folder_IsOfTheWrongKindInEveryMode) {
  const TempFolder folder;
  for (const OpenMode mode : {OpenMode::kRead, OpenMode::kReadWrite, OpenMode::kCreateEmpty}) {
    Status status;
    EXPECT_EQ(OpenBinary(folder.Core(), mode, status), nullptr);
    EXPECT_EQ(status.error, ErrorClass::kWrongKind);
  }
}

TEST(OpenBinary, WriteToAFullDisk_IsDiskFull) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  Status status;
  const auto file = OpenBinary(disk.folder().Core("file"), OpenMode::kCreateEmpty, status);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->WriteAt(0, Bytes(BytesOfSize(2 << 20))).error, ErrorClass::kDiskFull);
}

TEST(Sha256OfFile, KnownContents_HaveTheirKnownSums) {
  const TempFolder folder;
  folder.Write("empty", "");
  folder.Write("abc", "abc");
  Status status;
  EXPECT_EQ(Sha256OfFile(folder.Core("empty"), status),
            "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(Sha256OfFile(folder.Core("ABC"), status),
            "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_TRUE(status.ok());
}

TEST(Sha256OfFile, MissingFile_IsEmptyWithTheReason) {
  const TempFolder folder;
  Status status;
  EXPECT_EQ(Sha256OfFile(folder.Core("missing"), status), "");
  EXPECT_EQ(status.error, ErrorClass::kNotFound);
}

TEST(Sha256OfFile, FileLargerThanOneRead_IsSummedWhole) {
  const TempFolder folder;
  folder.Write("file", std::string(1000000, 'a'));
  Status status;
  EXPECT_EQ(Sha256OfFile(folder.Core("file"), status),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

}  // namespace
}  // namespace discwright::host
