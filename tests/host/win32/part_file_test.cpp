// Tests of unfinished files that another program uses.
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
  const auto early = CreatePartFile(folder.Core("file"), 0);
  ASSERT_TRUE(early.ok()) << early.status.cause;
  EXPECT_EQ(CreatePartFile(folder.Core("file"), 0).status.error, ErrorClass::kAccessDenied);
  EXPECT_TRUE(early.value->Commit().ok());
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(PartFileTest, LockedEarlierFile_StaysAndNothingElseIsLeft) {
  const TempFolder folder;
  folder.Write("file", "earlier");
  {
    const OwnedHandle lock(CreateFileW(folder.Path("file").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    const auto file = CreatePartFile(folder.Core("file"), 0);
    ASSERT_TRUE(file.ok()) << file.status.cause;
    EXPECT_EQ(file.value->Commit().error, ErrorClass::kAccessDenied);
  }
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(folder.Read("file"), "earlier");
}

TEST(PartFileTest, ReadOnlyEarlierFileAndLeftPart_AreReplaced) {
  const TempFolder folder;
  for (const char* name : {"file", ".discwright-file.part"}) {
    folder.Write(name, "earlier");
    folder.SetReadOnly(name);
  }
  const auto file = CreatePartFile(folder.Core("file"), 0);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  EXPECT_TRUE(file.value->Commit().ok());
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(folder.Read("file"), "");
}

TEST(PartFileTest, PositionsBeyondFourGigabytes_AreWritten) {
  const TempFolder folder;
  constexpr std::uint64_t kFar = std::uint64_t{5} << 30;
  const auto file = CreatePartFile(folder.Core("file"), kFar + 1);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  constexpr std::uint8_t kByte = 'x';
  EXPECT_TRUE(file.value->WriteAt(kFar, {&kByte, 1}).ok());
  EXPECT_TRUE(file.value->Commit().ok());
  EXPECT_EQ(std::filesystem::file_size(folder.Path("file")), kFar + 1);
}

TEST(PartFileTest, NameThatTheCodePageLacks_IsRefused) {
  const TempFolder folder;
  EXPECT_FALSE(CreatePartFile(folder.Core("漢.iso"), 0).ok());
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace discwright::host
