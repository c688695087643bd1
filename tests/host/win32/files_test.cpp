// Tests of locked files, of file attributes, of paths that the system cannot take, and of copying on either family.
#include "host/files.h"

#include <gmock/gmock.h>
#include <windows.h>

#include "host/system.h"
#include "host/win32/errors.h"
#include "host/win32/new_file.h"
#include "host/win32/owned_handle.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::BytesOfSize;
using ::testing::ElementsAre;
using testing::TempFolder;

// What another program does that lets nobody else in.
OwnedHandle Lock(const TempFolder& folder, std::string_view name) {
  return OwnedHandle(
      CreateFileW(folder.Path(name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

DWORD Marks(const TempFolder& folder, std::string_view name) {
  constexpr DWORD kMarks = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  return GetFileAttributesW(folder.Path(name).c_str()) & kMarks;
}

void SetMarks(const TempFolder& folder, std::string_view name, DWORD marks) {
  ASSERT_NE(SetFileAttributesW(folder.Path(name).c_str(), marks), 0);
}

WIN32_FILE_ATTRIBUTE_DATA FactsOf(const TempFolder& folder, std::string_view name) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  GetFileAttributesExW(folder.Path(name).c_str(), GetFileExInfoStandard, &data);
  return data;
}

FILETIME TimeOf(const TempFolder& folder, std::string_view name) { return FactsOf(folder, name).ftLastWriteTime; }

TEST(LockedFile, IsDeniedToEveryone) {
  const TempFolder folder;
  folder.Write("file", "content");
  folder.Write("other", "other");
  const OwnedHandle lock = Lock(folder, "file");
  ASSERT_TRUE(lock.valid());
  const std::string path = folder.Core("file");
  EXPECT_FALSE(CheckReadable(path).ok());
  EXPECT_EQ(ReadWholeFile(path).status.error, ErrorClass::kAccessDenied);
  EXPECT_EQ(WriteWholeFile(path, "new").error, ErrorClass::kAccessDenied);
  EXPECT_EQ(OpenBinary(path, OpenMode::kReadWrite).status.error, ErrorClass::kAccessDenied);
  EXPECT_EQ(RemoveFile(path).error, ErrorClass::kAccessDenied);
  EXPECT_EQ(RenameFile(path, folder.Core("new")).error, ErrorClass::kAccessDenied);
  EXPECT_EQ(CopyFileWithProgress(path, folder.Core("to"), nullptr).error, ErrorClass::kAccessDenied);
  EXPECT_EQ(CopyFileWithProgress(folder.Core("other"), path, nullptr).error, ErrorClass::kAccessDenied);
  EXPECT_THAT(folder.Names(), ElementsAre("file", "other"));
}

TEST(ReadOnlyFile, IsNotWrittenOrRemovedUntilItsMarkIsCleared) {
  const TempFolder folder;
  folder.Write("file", "old");
  folder.SetReadOnly("file");
  EXPECT_EQ(WriteWholeFile(folder.Core("file"), "new").error, ErrorClass::kAccessDenied);
  EXPECT_EQ(RemoveFile(folder.Core("file")).error, ErrorClass::kAccessDenied);
  EXPECT_EQ(folder.Read("file"), "old");
  EXPECT_TRUE(ClearAttributes(folder.Core("file")).ok());
  EXPECT_TRUE(RemoveFile(folder.Core("file")).ok());
  EXPECT_TRUE(folder.Names().empty());
}

TEST(ClearAttributes, HiddenAndSystemMarks_AreKept) {
  const TempFolder folder;
  folder.Write("file", "");
  SetMarks(folder, "file", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  EXPECT_TRUE(ClearAttributes(folder.Core("file")).ok());
  EXPECT_EQ(Marks(folder, "file"), DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM});
}

TEST(WriteWholeFile, HiddenFile_StaysHidden) {
  const TempFolder folder;
  folder.Write("file", "old");
  SetMarks(folder, "file", FILE_ATTRIBUTE_HIDDEN);
  EXPECT_TRUE(WriteWholeFile(folder.Core("file"), "new").ok());
  EXPECT_EQ(folder.Read("file"), "new");
  EXPECT_EQ(Marks(folder, "file"), DWORD{FILE_ATTRIBUTE_HIDDEN});
}

TEST(WriteWholeFile, ReadOnlyFileThatWasMadeWritable_KeepsItsOtherMarksAndItsTimes) {
  const TempFolder folder;
  folder.Write("file", "old");
  const FILETIME times[3] = {
      {0x11000000, 0x01C00000}, {0x22000000, 0x01C10000}, {0x33000000, 0x01C20000}};  // made, read, changed
  {
    const OwnedHandle file(CreateFileW(folder.Path("file").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_NE(SetFileTime(file.get(), &times[0], &times[1], &times[2]), 0);
  }
  SetMarks(folder, "file", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  const WIN32_FILE_ATTRIBUTE_DATA before = FactsOf(folder, "file");
  ASSERT_TRUE(ClearAttributes(folder.Core("file")).ok());
  EXPECT_TRUE(WriteWholeFile(folder.Core("file"), "new", FileTimes::kKept).ok());
  const WIN32_FILE_ATTRIBUTE_DATA after = FactsOf(folder, "file");
  EXPECT_EQ(folder.Read("file"), "new");
  EXPECT_EQ(Marks(folder, "file"), DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM});
  EXPECT_EQ(CompareFileTime(&after.ftLastWriteTime, &times[2]), 0);
  EXPECT_EQ(CompareFileTime(&after.ftLastAccessTime, &before.ftLastAccessTime), 0);
  // Under Wine the time of making is that of the last change of anything, which cannot be set.
  if (CompareFileTime(&before.ftCreationTime, &times[0]) != 0) return;
  EXPECT_EQ(CompareFileTime(&after.ftCreationTime, &times[0]), 0);
}

TEST(OpenBinary, HiddenFile_IsEmptiedLikeAnyOther) {
  const TempFolder folder;
  folder.Write("file", "old");
  SetMarks(folder, "file", FILE_ATTRIBUTE_HIDDEN);
  EXPECT_TRUE(OpenBinary(folder.Core("file"), OpenMode::kCreateEmpty).ok());
  EXPECT_EQ(folder.Read("file"), "");
}

TEST(OpenBinary, PositionsBeyondFourGigabytes_AreWrittenAndRead) {
  const TempFolder folder;
  constexpr std::int64_t kFar = (std::int64_t{1} << 32) - 2;
  OwnedHandle sparse(
      CreateFileW(folder.Path("file").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  LONG high = 1;
  ASSERT_EQ(SetFilePointer(sparse.get(), 0, &high, FILE_BEGIN), 0u);
  if (SetEndOfFile(sparse.get()) == 0) GTEST_SKIP() << "this disk has no such large files";
  sparse.Close();
  const auto file = OpenBinary(folder.Core("file"), OpenMode::kReadWrite);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  EXPECT_EQ(file.value->Length().value, std::int64_t{1} << 32);
  EXPECT_TRUE(file.value->WriteAt(kFar, std::as_bytes(std::span(std::string_view("1234")))).ok());
  EXPECT_EQ(file.value->Length().value, kFar + 4);
  std::string text(3, '\0');
  EXPECT_TRUE(file.value->ReadAt(kFar + 1, std::as_writable_bytes(std::span(text))).ok());
  EXPECT_EQ(text, "234");
  EXPECT_EQ(Look(folder.Core("file")).value.size, kFar + 4);
}

TEST(MakeFolders, NameThatTheCodePageLacks_IsRefused) {
  const TempFolder folder;
  EXPECT_EQ(MakeFolders(folder.Core("a\\漢")).cause, NameNotInCodePage().cause);
  EXPECT_TRUE(folder.Names().empty());
}

TEST(MakeFolders, RelativeAndDriveRelativePaths_StartAtTheCurrentFolder) {
  const TempFolder folder;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path(""));
  EXPECT_TRUE(MakeFolders("one\\two").ok());
  EXPECT_TRUE(MakeFolders(CurrentFolder().substr(0, 2) + "three").ok());
  std::filesystem::current_path(before);
  EXPECT_THAT(folder.Names(), ElementsAre("one", "three"));
  EXPECT_THAT(folder.Names("one"), ElementsAre("two"));
}

TEST(MakeFolders, DriveThatIsNotThere_IsNotFound) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::string root = std::string(1, letter) + ":\\";
    if (GetDriveTypeA(root.c_str()) != DRIVE_NO_ROOT_DIR) continue;
    EXPECT_EQ(MakeFolders(root + "a\\b").error, ErrorClass::kNotFound);
    return;
  }
}

TEST(LongPath, IsRefusedWithItsOwnReason) {
  const TempFolder folder;
  const std::string path = folder.Core(std::string(255, 'n'));
  EXPECT_EQ(ReadWholeFile(path).status.cause, StatusOf(ERROR_FILENAME_EXCED_RANGE).cause);
  EXPECT_EQ(WriteWholeFile(path, "x").cause, StatusOf(ERROR_FILENAME_EXCED_RANGE).cause);
  EXPECT_EQ(MakeFolders(path).cause, StatusOf(ERROR_FILENAME_EXCED_RANGE).cause);
}

TEST(WriteWholeFile, LongestPossiblePath_IsWritten) {
  const TempFolder folder;
  const std::string name(MAX_PATH - 1 - folder.Core("").size() - 1, 'n');
  EXPECT_TRUE(WriteWholeFile(folder.Core(name), "x").ok());
  EXPECT_TRUE(WriteWholeFile(folder.Core(name), "y").ok());
  EXPECT_EQ(folder.Read(name), "y");
}

TEST(CopyFile, ModificationTimeAndMarks_AreKeptButForReadOnly) {
  const TempFolder folder;
  folder.Write("from", "x");
  const FILETIME time{0x12345678, 0x01C00000};
  {
    const OwnedHandle file(CreateFileW(folder.Path("from").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_NE(SetFileTime(file.get(), nullptr, nullptr, &time), 0);
  }
  SetMarks(folder, "from", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  folder.Write("old", "replaced");
  for (const char* to : {"new", "old"}) {
    ASSERT_TRUE(CopyFileWithProgress(folder.Core("from"), folder.Core(to), nullptr).ok()) << to;
    EXPECT_EQ(TimeOf(folder, to).dwLowDateTime, time.dwLowDateTime) << to;
    EXPECT_EQ(TimeOf(folder, to).dwHighDateTime, time.dwHighDateTime) << to;
    EXPECT_EQ(Marks(folder, to), DWORD{FILE_ATTRIBUTE_HIDDEN}) << to;
  }
}

TEST(CopyFile, NamesOfTheCodePage_AreCopied) {
  const TempFolder folder;
  folder.Write("from", "x");
  for (const char* name : {"with blank", "quote'", "$HOME `id` %PATH%", "Ümläut €", "-dash", ".dot", "semi;colon"}) {
    EXPECT_TRUE(CopyFileWithProgress(folder.Core("from"), folder.Core(name), nullptr).ok()) << name;
    EXPECT_EQ(folder.Read(name), "x") << name;
  }
}

TEST(CopyFile, NameThatTheCodePageLacks_IsRefused) {
  const TempFolder folder;
  folder.Write("from", "x");
  for (const char* name : {"漢字", "\xC4\x80", "a?"}) {
    const Status status = CopyFileWithProgress(folder.Core("from"), folder.Core(name), nullptr);
    EXPECT_EQ(status.cause, NameNotInCodePage().cause) << name;
  }
  EXPECT_THAT(folder.Names(), ElementsAre("from"));
}

TEST(CopyByHand, LargeFile_ReportsEveryPiece) {
  const TempFolder folder;
  const std::string content = BytesOfSize((64 << 10) * 3 + 17);
  folder.Write("from", content);
  std::vector<std::int64_t> told;
  const CopyRoutine routine = [&](CopyEvent, std::int64_t transferred) { return told.push_back(transferred), true; };
  EXPECT_TRUE(CopyByHand(AnsiPath(folder.Core("from")), AnsiPath(folder.Core("to")), routine).ok());
  EXPECT_EQ(folder.Read("to"), content);
  EXPECT_THAT(told, ElementsAre(0, 64 << 10, 2 * (64 << 10), 3 * (64 << 10), content.size()));
}

TEST(CopyByHand, FileOfWholePieces_EndsWithItsLastPiece) {
  const TempFolder folder;
  folder.Write("from", BytesOfSize(2 * (64 << 10)));
  std::vector<std::int64_t> told;
  const CopyRoutine routine = [&](CopyEvent, std::int64_t transferred) { return told.push_back(transferred), true; };
  EXPECT_TRUE(CopyByHand(AnsiPath(folder.Core("from")), AnsiPath(folder.Core("to")), routine).ok());
  EXPECT_THAT(told, ElementsAre(0, 64 << 10, 2 * (64 << 10)));
}

}  // namespace
}  // namespace discwright::host
