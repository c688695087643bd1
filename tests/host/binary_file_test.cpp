// Tests of reading and writing files at positions, and of their checksums.
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
  const auto file = OpenBinary(folder.Core("FILE"), OpenMode::kRead);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  EXPECT_EQ(file.value->Length().value, 10);
  EXPECT_EQ(ReadText(*file.value, 7, 3), "789");
  EXPECT_EQ(ReadText(*file.value, 0, 2), "01");
  EXPECT_EQ(ReadText(*file.value, 10, 0), "");
}

TEST(OpenBinary, ReadPastTheEnd_IsAFailure) {
  const TempFolder folder;
  folder.Write("file", "0123");
  const auto file = OpenBinary(folder.Core("file"), OpenMode::kRead);
  std::string text(3, '\0');
  EXPECT_FALSE(file.value->ReadAt(2, std::as_writable_bytes(std::span(text))).ok());
}

TEST(OpenBinary, WriteToAFileOpenedForReading_IsAFailure) {
  const TempFolder folder;
  folder.Write("file", "0123");
  const auto file = OpenBinary(folder.Core("file"), OpenMode::kRead);
  EXPECT_FALSE(file.value->WriteAt(0, Bytes("x")).ok());
  EXPECT_EQ(folder.Read("file"), "0123");
}

TEST(OpenBinary, ReadWriteMode_KeepsTheTailOfALongerFile) {
  const TempFolder folder;
  folder.Write("file", "0123456789");
  const auto file = OpenBinary(folder.Core("file"), OpenMode::kReadWrite);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  EXPECT_TRUE(file.value->WriteAt(2, Bytes("ab")).ok());
  EXPECT_EQ(folder.Read("file"), "01ab456789");
  EXPECT_EQ(ReadText(*file.value, 1, 4), "1ab4");
}

TEST(OpenBinary, ReadWriteMode_MakesAMissingFileAndGrowsIt) {
  const TempFolder folder;
  const auto file = OpenBinary(folder.Core("New"), OpenMode::kReadWrite);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  EXPECT_EQ(file.value->Length().value, 0);
  EXPECT_TRUE(file.value->WriteAt(3, Bytes("x")).ok());
  EXPECT_EQ(file.value->Length().value, 4);
  EXPECT_EQ(folder.Read("New"), std::string("\0\0\0x", 4));
}

TEST(OpenBinary, CreateEmptyMode_TruncatesOrMakes) {
  const TempFolder folder;
  folder.Write("old", "content");
  EXPECT_TRUE(OpenBinary(folder.Core("old"), OpenMode::kCreateEmpty).ok());
  EXPECT_TRUE(OpenBinary(folder.Core("new"), OpenMode::kCreateEmpty).ok());
  EXPECT_EQ(folder.Read("old"), "");
  EXPECT_EQ(folder.Read("new"), "");
}

TEST(OpenBinary, MissingFileOrFolder_IsNotFound) {
  const TempFolder folder;
  EXPECT_EQ(OpenBinary(folder.Core("missing"), OpenMode::kRead).status.error, ErrorClass::kNotFound);
  EXPECT_EQ(OpenBinary(folder.Core("missing\\file"), OpenMode::kCreateEmpty).status.error, ErrorClass::kNotFound);
}

TEST(OpenBinary, Folder_IsOfTheWrongKindInEveryMode) {
  const TempFolder folder;
  for (const OpenMode mode : {OpenMode::kRead, OpenMode::kReadWrite, OpenMode::kCreateEmpty}) {
    EXPECT_EQ(OpenBinary(folder.Core(), mode).status.error, ErrorClass::kWrongKind);
  }
}

TEST(OpenBinary, WriteToAFullDisk_IsDiskFull) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  const auto file = OpenBinary(disk.folder().Core("file"), OpenMode::kCreateEmpty);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  EXPECT_EQ(file.value->WriteAt(0, Bytes(BytesOfSize(2 << 20))).error, ErrorClass::kDiskFull);
}

TEST(Sha256OfFile, KnownContents_HaveTheirKnownSums) {
  const TempFolder folder;
  folder.Write("empty", "");
  folder.Write("abc", "abc");
  EXPECT_EQ(Sha256OfFile(folder.Core("empty")).value,
            "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(Sha256OfFile(folder.Core("ABC")).value, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Sha256OfFile, MissingFile_IsAFailure) {
  const TempFolder folder;
  EXPECT_EQ(Sha256OfFile(folder.Core("missing")).status.error, ErrorClass::kNotFound);
}

TEST(Sha256OfFile, RoutineThatDoesNotGoOn_StopsTheReading) {
  const TempFolder folder;
  folder.Write("file", std::string(1000000, 'a'));
  int pieces = 0;
  const Result<std::string> sum = Sha256OfFile(folder.Core("file"), [&] { return ++pieces < 2; });
  EXPECT_EQ(sum.status.cause, StoppedReading().cause);
  EXPECT_EQ(sum.value, "");
  EXPECT_EQ(pieces, 2);
}

TEST(Sha256OfFile, FileLargerThanOneRead_IsSummedWhole) {
  const TempFolder folder;
  folder.Write("file", std::string(1000000, 'a'));
  EXPECT_EQ(Sha256OfFile(folder.Core("file")).value,
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

}  // namespace
}  // namespace discwright::host
