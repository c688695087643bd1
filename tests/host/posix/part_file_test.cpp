// Tests of unfinished files beside links and pipes.
#include "host/part_file.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

std::span<const std::uint8_t> Bytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::unique_ptr<PartFile> Create(const TempFolder& folder, const std::string& name) {
  auto file = CreatePartFile(folder.Core(name), 0);
  EXPECT_TRUE(file.ok()) << file.status.cause;
  return std::move(file.value);
}

TEST(PartFileTest, LinkUnderThePartsName_IsReplacedNotFollowed) {
  const TempFolder folder;
  folder.Write("precious", "content");
  folder.Link("precious", ".discwright-file.part");
  const auto file = Create(folder, "file");
  EXPECT_TRUE(file->WriteAt(0, Bytes("new")).ok());
  EXPECT_TRUE(file->Commit().ok());
  EXPECT_EQ(folder.Read("precious"), "content");
}

TEST(PartFileTest, LinkWithItsName_IsReplacedNotFollowed) {
  const TempFolder folder;
  folder.Write("precious", "content");
  folder.Link("precious", "file");
  EXPECT_TRUE(Create(folder, "file")->Commit().ok());
  EXPECT_EQ(folder.Read("precious"), "content");
  EXPECT_EQ(folder.Read("file"), "");
}

TEST(PartFileTest, LongestPossibleName_IsWritten) {
  const TempFolder folder;
  const std::string name(255, 'n');
  EXPECT_EQ(Create(folder, name)->Commit().cause, "");
  EXPECT_THAT(folder.Names(), ElementsAre(name));
}

TEST(PartFileTest, PipeWithItsName_IsAFailure) {
  const TempFolder folder;
  folder.Pipe("pipe");
  EXPECT_EQ(CreatePartFile(folder.Core("pipe"), 0).status.error, ErrorClass::kWrongKind);
  EXPECT_THAT(folder.Names(), ElementsAre("pipe"));
}

}  // namespace
}  // namespace discwright::host
