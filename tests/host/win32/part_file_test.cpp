// Unfinished files in the hands of others.
#include "host/part_file.h"

#include <gmock/gmock.h>
#include <windows.h>

#include "host/system.h"
#include "host/win32/owned_handle.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

TEST(PartFileTest, OfTwoRunsOfWindows9x_TheLaterIsRefused) {
  if (PlatformId() != 1) GTEST_SKIP() << "the NT family lets it replace the file";
  const TempFolder folder;
  Status status;
  const auto early = CreatePartFile(folder.Core("file"), 0, status);
  ASSERT_NE(early, nullptr);
  EXPECT_EQ(CreatePartFile(folder.Core("file"), 0, status), nullptr);
  EXPECT_EQ(status.error, ErrorClass::kAccessDenied);
  EXPECT_TRUE(early->Commit().ok());
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(PartFileTest, LockedEarlierFile_StaysAndNothingElseIsLeft) {
  const TempFolder folder;
  folder.Write("file", "earlier");
  {
    const OwnedHandle lock(CreateFileW(folder.Path("file").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    Status status;
    const auto file = CreatePartFile(folder.Core("file"), 0, status);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->Commit().error, ErrorClass::kAccessDenied);
  }
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(folder.Read("file"), "earlier");
}

TEST(PartFileTest, ReadOnlyEarlierFileAndLeftPart_AreReplaced) {
  const TempFolder folder;
  for (const char* name : {"file", "file.part"}) {
    folder.Write(name, "earlier");
    folder.SetReadOnly(name);
  }
  Status status;
  const auto file = CreatePartFile(folder.Core("file"), 0, status);
  ASSERT_NE(file, nullptr) << status.cause;
  EXPECT_TRUE(file->Commit().ok());
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(folder.Read("file"), "");
}

TEST(PartFileTest, PositionsBeyondFourGigabytes_AreWritten) {
  const TempFolder folder;
  constexpr std::uint64_t kFar = std::uint64_t{5} << 30;
  Status status;
  const auto file = CreatePartFile(folder.Core("file"), kFar + 1, status);
  ASSERT_NE(file, nullptr);
  constexpr std::uint8_t kByte = 'x';
  EXPECT_TRUE(file->WriteAt(kFar, {&kByte, 1}).ok());
  EXPECT_TRUE(file->Commit().ok());
  EXPECT_EQ(std::filesystem::file_size(folder.Path("file")), kFar + 1);
}

TEST(PartFileTest, NameThatTheCodePageLacks_IsRefused) {
  const TempFolder folder;
  Status status;
  EXPECT_EQ(CreatePartFile(folder.Core("漢.iso"), 0, status), nullptr);
  EXPECT_FALSE(status.ok());
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace discwright::host
