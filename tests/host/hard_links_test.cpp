// Tests of hard links, and of the facts that identify a file.
#include "host/hard_links.h"

#include <gmock/gmock.h>

#include <array>

#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::SmallDisk;
using testing::TempFolder;

std::vector<std::string> NamesOf(const Result<std::vector<NamedFacts>>& listing) {
  std::vector<std::string> names;
  for (const NamedFacts& entry : listing.value) names.push_back(entry.name + (entry.is_folder ? "\\" : ""));
  return names;
}

TEST(ListFacts, FilesAndFolders_AreListedByNameByteByByte) {
  const TempFolder folder;
  for (const char* name : {"b", "C", "a b", "\xC3\xA4"}) folder.Write(name, "x");
  folder.MakeFolder("a");
  const Result<std::vector<NamedFacts>> listing = ListFacts(folder.Core());
  EXPECT_TRUE(listing.status.ok());
  EXPECT_THAT(NamesOf(listing), ElementsAre("C", "a\\", "a b", "b", "\xC3\xA4"));
}

TEST(ListFacts, NamesOfOneFile_HaveTheFactsThatLookingThemUpGives) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no hard links";
  const TempFolder folder;
  folder.Write("file", "12345");
  folder.MakeHardLink("file", "second");
  const Result<std::vector<NamedFacts>> listing = ListFacts(folder.Core());
  ASSERT_EQ(listing.value.size(), 2u);
  EXPECT_TRUE(listing.value[0].facts.IsUnchanged(*FactsOf(folder.Core("second"))));
  EXPECT_TRUE(listing.value[1].facts.IsUnchanged(*FactsOf(folder.Core("file"))));
  EXPECT_EQ(listing.value[0].facts.links, 2u);
}

TEST(ListFacts, MissingFolderOrFile_IsAFailure) {
  const TempFolder folder;
  folder.Write("file", "x");
  EXPECT_EQ(ListFacts(folder.Core("missing")).status.error, ErrorClass::kNotFound);
  EXPECT_FALSE(ListFacts(folder.Core("file")).status.ok());
}

TEST(FactsOf, NamesOfOneFile_AreTheSameFileWithTwoLinks) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no hard links";
  const TempFolder folder;
  folder.Write("file", "12345");
  folder.Write("other", "12345");
  folder.MakeHardLink("file", "second");
  const auto file = FactsOf(folder.Core("file"));
  const auto second = FactsOf(folder.Core("second"));
  const auto other = FactsOf(folder.Core("other"));
  ASSERT_TRUE(file && second && other);
  EXPECT_TRUE(file->IsSameFile(*second));
  EXPECT_FALSE(file->IsSameFile(*other));
  EXPECT_EQ(file->links, 2u);
  EXPECT_EQ(file->size, 5);
}

TEST(FactsOf, FolderOrNothing_HasNone) {
  const TempFolder folder;
  for (const char* name : {"", "missing"}) EXPECT_FALSE(FactsOf(folder.Core(name))) << name;
}

TEST(FileFacts, OtherSizeTimeOrFile_IsAChange) {
  const FileFacts facts{1, 2, 3, 4, 5};
  EXPECT_TRUE(facts.IsUnchanged({1, 2, 3, 4, 6}));
  EXPECT_FALSE(facts.IsUnchanged({1, 2, 3, 5, 5}));
  EXPECT_FALSE(facts.IsUnchanged({1, 2, 4, 4, 5}));
  EXPECT_FALSE(facts.IsUnchanged({1, 3, 3, 4, 5}));
  EXPECT_FALSE(facts.IsUnchanged({2, 2, 3, 4, 5}));
}

TEST(OpenUnchanged, FileAsItWasListed_IsReadWithoutTouchingItsTimes) {
  const TempFolder folder;
  folder.Write("file", "content");
  const auto file = OpenUnchanged(folder.Core("file"), *FactsOf(folder.Core("file")));
  ASSERT_TRUE(file.ok()) << file.status.cause;
  std::array<std::byte, 7> bytes{};
  EXPECT_TRUE(file.value->ReadAt(0, bytes).ok());
  EXPECT_EQ(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), "content");
}

TEST(OpenUnchanged, ChangedOrMissingFile_IsRefused) {
  const TempFolder folder;
  folder.Write("file", "content");
  const FileFacts facts = *FactsOf(folder.Core("file"));
  folder.Write("file", "longer content");
  EXPECT_FALSE(OpenUnchanged(folder.Core("file"), facts).ok());
  EXPECT_EQ(OpenUnchanged(folder.Core("missing"), facts).status.error, ErrorClass::kNotFound);
}

TEST(MakeHardLink, FreeName_BecomesASecondName) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no hard links";
  const TempFolder folder;
  folder.Write("file", "x");
  EXPECT_EQ(MakeHardLink(folder.Core("file"), folder.Core("fresh")).end, LinkEnd::kMade);
  EXPECT_THAT(folder.Names(), ElementsAre("file", "fresh"));
  EXPECT_EQ(FactsOf(folder.Core("fresh"))->links, 2u);
  EXPECT_EQ(folder.Read("fresh"), "x");
}

TEST(MakeHardLink, TakenName_StaysAsItIs) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no hard links";
  const TempFolder folder;
  folder.Write("file", "1");
  folder.Write("taken", "2");
  const LinkAnswer answer = MakeHardLink(folder.Core("file"), folder.Core("taken"));
  EXPECT_EQ(answer.end, LinkEnd::kNameTaken);
  EXPECT_FALSE(answer.status.ok());
  EXPECT_EQ(folder.Read("taken"), "2");
}

TEST(MakeHardLink, MissingFile_IsAFailureWithItsCause) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no hard links";
  const TempFolder folder;
  const LinkAnswer answer = MakeHardLink(folder.Core("missing"), folder.Core("fresh"));
  EXPECT_EQ(answer.end, LinkEnd::kFailed);
  EXPECT_EQ(answer.status.error, ErrorClass::kNotFound);
}

TEST(MakeHardLink, OtherVolume_IsAResultOfItsOwn) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no hard links";
  const TempFolder folder;
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("file", "x");
  EXPECT_EQ(MakeHardLink(folder.Core("file"), disk.folder().Core("fresh")).end, LinkEnd::kOtherVolume);
}

TEST(MoveOver, ExistingTarget_BecomesTheOtherFile) {
  const TempFolder folder;
  folder.Write("from", "1");
  folder.Write("to", "2");
  EXPECT_TRUE(MoveOver(folder.Core("from"), folder.Core("to")).ok());
  EXPECT_THAT(folder.Names(), ElementsAre("to"));
  EXPECT_EQ(folder.Read("to"), "1");
}

TEST(MoveOver, MissingSourceOrTarget_IsAFailureThatLeavesBoth) {
  const TempFolder folder;
  folder.Write("file", "1");
  EXPECT_EQ(MoveOver(folder.Core("missing"), folder.Core("file")).error, ErrorClass::kNotFound);
  EXPECT_EQ(MoveOver(folder.Core("file"), folder.Core("missing")).error, ErrorClass::kNotFound);
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(MoveOver, ReadOnlyTarget_IsReplaced) {
  const TempFolder folder;
  folder.Write("from", "1");
  folder.Write("to", "2");
  folder.SetReadOnly("to");
  EXPECT_TRUE(MoveOver(folder.Core("from"), folder.Core("to")).ok());
  EXPECT_EQ(folder.Read("to"), "1");
}

TEST(RemoveSpareName, OnlyANameThatIsNotTheLast_IsRemoved) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no hard links";
  const TempFolder folder;
  folder.Write("file", "1");
  folder.MakeHardLink("file", "spare");
  EXPECT_TRUE(RemoveSpareName(folder.Core("spare")));
  for (const char* name : {"file", "missing"}) EXPECT_FALSE(RemoveSpareName(folder.Core(name))) << name;
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

}  // namespace
}  // namespace discwright::host
