// Tests of making, moving and removing links and pipes, and of permission bits.
#include "host/files.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::IsEmpty;
using testing::TempFolder;

TEST(MakeFolders, LinkToAFolder_IsASuccess) {
  const TempFolder folder;
  folder.MakeFolder("Folder");
  folder.Link("Folder", "link");
  EXPECT_TRUE(MakeFolders(folder.Core("link")).ok());
}

TEST(SameFolder, ThroughALink_IsTheSame) {
  const TempFolder folder;
  folder.MakeFolder("Folder");
  folder.Link("Folder", "link");
  EXPECT_TRUE(SameFolder(folder.Core("FOLDER\\"), folder.Core("link")));
}

TEST(SameFile, ThroughALinkOrAnotherName_IsTheSame) {
  const TempFolder folder;
  folder.Write("File", "content");
  folder.Link("File", "link");
  folder.MakeHardLink("File", "second name");
  EXPECT_TRUE(SameFile(folder.Core("FILE"), folder.Core("link")));
  EXPECT_TRUE(SameFile(folder.Core("File"), folder.Core("second name")));
}

TEST(LiesBelow, FileThroughLinks_IsWhereTheyLead) {
  const TempFolder elsewhere;
  elsewhere.Write("file", "");
  const TempFolder folder;
  folder.Write("top/sub/file", "");
  folder.Link("sub/file", "top/in");
  folder.Link("..", "top/sub/up");
  folder.Link(elsewhere.Native("file"), "top/out");
  folder.Link(elsewhere.native(), "top/folder");
  folder.Link("../top2", "top/beside");
  folder.Write("top2/file", "");
  const std::string top = folder.Core("top");
  for (const char* path : {"top/sub/FILE", "top/in", "top/sub/up/in"}) {
    EXPECT_TRUE(LiesBelow(top, folder.Core(path))) << path;
  }
  for (const char* path : {"top/out", "top/folder/file", "top/beside/file", "top/missing"}) {
    EXPECT_FALSE(LiesBelow(top, folder.Core(path))) << path;
  }
}

TEST(MakeFolders, BrokenLinkInTheWay_IsAFailure) {
  const TempFolder folder;
  folder.Link("nowhere", "link");
  EXPECT_EQ(MakeFolders(folder.Core("link\\below")).error, ErrorClass::kExists);
}

TEST(ClearAttributes, ReadOnlyFile_BecomesWritableForItsOwner) {
  const TempFolder folder;
  folder.Write("file", "x");
  folder.SetMode("file", 0040);
  EXPECT_TRUE(ClearAttributes(folder.Core("FILE")).ok());
  EXPECT_EQ(folder.Mode("file"), 0640u);
}

TEST(ClearAttributes, ReadOnlyFolder_CanBeEnteredAndChangedAgain) {
  const TempFolder folder;
  folder.MakeFolder("folder");
  folder.SetMode("folder", 0055);
  EXPECT_TRUE(ClearAttributes(folder.Core("folder")).ok());
  EXPECT_EQ(folder.Mode("folder"), 0755u);
}

TEST(ClearAttributes, Link_LeavesItsTargetAsItIs) {
  const TempFolder folder;
  folder.Write("file", "x");
  folder.SetMode("file", 0444);
  folder.Link("file", "link");
  EXPECT_TRUE(ClearAttributes(folder.Core("link")).ok());
  EXPECT_EQ(folder.Mode("file"), 0444u);
}

TEST(RemoveFile, LinksAndPipes_AreRemovedThemselves) {
  const TempFolder folder;
  const TempFolder elsewhere;
  elsewhere.Write("file", "x");
  folder.Link(elsewhere.Native("file"), "file");
  folder.Link(elsewhere.native(), "folder");
  folder.Link("nowhere", "broken");
  folder.Pipe("pipe");
  for (const char* name : {"file", "folder", "broken", "pipe"}) EXPECT_TRUE(RemoveFile(folder.Core(name)).ok()) << name;
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_EQ(elsewhere.Read("file"), "x");
}

TEST(RenameFile, BrokenLinkWithTheName_IsRefused) {
  const TempFolder folder;
  folder.Write("from", "1");
  folder.Link("nowhere", "to");
  EXPECT_EQ(RenameFile(folder.Core("from"), folder.Core("to")).error, ErrorClass::kExists);
}

}  // namespace
}  // namespace discwright::host
