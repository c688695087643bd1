// Tests of runs on trees that only Linux can make: symbolic links, pipes, odd names, permission bits.
#include <unistd.h>

#include <iostream>

#include "tests/dfl/dfl_fixture.h"

namespace discwright::tools::dfl {
namespace {

using ::testing::IsEmpty;

class OddTrees : public testing::DflTest {};

TEST_F(OddTrees, NamesThatDifferOnlyInCase_AreTwoFiles) {
  Write("Name", "1111");
  Write("NAME", "2222");
  Write("name", "1111");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(AreLinked("Name", "name"));
  EXPECT_FALSE(AreLinked("Name", "NAME"));
  EXPECT_EQ(folder_.Read("NAME"), "2222");
}

TEST_F(OddTrees, SymbolicLinks_AreNeitherFollowedNorReplaced) {
  const host::testing::TempFolder outside;
  outside.Write("file", "content");
  Write("file", "content");
  folder_.Link("file", "a link");
  folder_.Link(outside.native(), "folder link");
  folder_.Link(".", "loop");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Native("a link")));
  EXPECT_EQ(LinksOf("file"), 1u);
  EXPECT_EQ(std::filesystem::hard_link_count(outside.Native("file")), 1u);
}

TEST_F(OddTrees, Pipes_AreNeverOpened) {
  folder_.Pipe("a");
  folder_.Pipe("b");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(LastLine(), "0 files linked, 0 bytes saved\n");
}

// Runs in a process without privileges, because permission bits do not stop an administrator.
TEST_F(OddTrees, FilesAndFoldersThatCannotBeRead_AreNamedAndTheRestGoesOn) {
  folder_.SetMode("", 0777);
  for (const char* name : {"a", "b", "c", "locked/d"}) Write(name, "content");
  folder_.SetMode("b", 0);
  folder_.SetMode("locked", 0);
  const auto run_without_rights = [&] {
    if (geteuid() == 0 && setuid(65534) != 0) std::_Exit(99);
    const int code = Run();
    std::cerr << errors_ << LastLine();
    std::_Exit(code);
  };
  // Some systems forbid links to files of another user. Then these files are named as well.
  EXPECT_EXIT(run_without_rights(), ::testing::ExitedWithCode(kExitProblems),
              "b cannot be read: Permission denied\n(.*\n)*.*locked.* cannot be listed: Permission denied\n");
  folder_.SetMode("locked", 0700);
  EXPECT_FALSE(AreLinked("a", "b"));
}

TEST_F(OddTrees, FileOfAFolderThatCannotBeSearched_IsNamed) {
  folder_.SetMode("", 0755);
  Write("sub/file", "content");
  folder_.SetMode("sub", 0644);
  const host::testing::WithoutRights without;
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_THAT(errors_, ::testing::HasSubstr("sub/file cannot be read: Permission denied"));
}

TEST_F(OddTrees, FoldersNestedThreeHundredDeep_AreWalked) {
  std::string deep;
  for (int level = 0; level < 300; ++level) deep += "d/";
  Write(deep + "file", "content");
  Write("file", "content");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(AreLinked("file", deep + "file"));
}

TEST_F(OddTrees, NamesWithBlanksNewLinesAndBackslashes_AreLinked) {
  const std::vector<std::string> names = {" blank ", "new\nline", "back\\slash", "\xFF", "-n"};
  for (const std::string& name : names) Write(name, "content");
  EXPECT_EQ(Run(), kExitDone);
  for (const std::string& name : names) EXPECT_TRUE(AreLinked(name, "-n")) << name;
  EXPECT_EQ(folder_.Names().size(), names.size());
}

}  // namespace
}  // namespace discwright::tools::dfl
