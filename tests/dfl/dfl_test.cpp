// The duplicate file linker as a whole: what a run does to a folder and what it prints.
#include "tools/dfl/dfl.h"

#include <ctime>

#include "tests/dfl/dfl_fixture.h"

namespace discwright::tools::dfl {
namespace {

using host::testing::BytesOfSize;
using testing::DflTest;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

TEST_F(DflTest, Run_PrintsTheLinesThatTheMonitorReads) {
  Write("a", "same");
  Write("b", "same");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(output_.str(), "Scanning " + folder_.native() +
                               "\nCalculating MD5 digests\nFinding duplicate files\n1 files linked, 4 bytes saved\n");
  EXPECT_THAT(errors_, IsEmpty());
}

TEST_F(DflTest, WrongArguments_AreUsageAndChangeNothing) {
  Write("a", "same");
  Write("b", "same");
  const std::string folder = folder_.native();
  const std::vector<std::vector<std::string>> wrong = {
      {}, {folder}, {"link"}, {"", "link"}, {folder, "LINK"}, {folder, "list"}, {folder, "link", "more"}};
  for (const auto& arguments : wrong) {
    std::ostringstream output;
    std::ostringstream errors;
    EXPECT_EQ(RunDfl(arguments, output, errors), kExitUsage);
    EXPECT_THAT(output.str(), IsEmpty());
    EXPECT_THAT(errors.str(), StartsWith("usage: dfl FOLDER link\n"));
  }
  EXPECT_FALSE(AreLinked("a", "b"));
}

TEST_F(DflTest, MissingFolder_IsNamedAndAProblem) {
  std::ostringstream output;
  std::ostringstream errors;
  EXPECT_EQ(RunDfl({folder_.Native("missing"), "link"}, output, errors), kExitProblems);
  EXPECT_THAT(errors.str(), HasSubstr("missing cannot be listed: No such file or directory\n"));
  EXPECT_THAT(output.str(), HasSubstr("0 files linked, 0 bytes saved\n"));
}

TEST_F(DflTest, EqualFiles_BecomeOneAcrossFolders) {
  Write("top", "content");
  Write("folder/deep/one", "content");
  Write("other/two", "content");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(AreLinked("top", "folder/deep/one"));
  EXPECT_TRUE(AreLinked("top", "other/two"));
  EXPECT_EQ(folder_.Read("other/two"), "content");
  EXPECT_EQ(LastLine(), "2 files linked, 14 bytes saved\n");
}

TEST_F(DflTest, SecondRun_HasNothingToDo) {
  Write("a", "content");
  Write("b", "content");
  Run();
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(LastLine(), "0 files linked, 0 bytes saved\n");
}

TEST_F(DflTest, FilesThatDifferInOneByte_StayApart) {
  for (const std::size_t size : {1u, 4096u, 4097u, 131072u, 131073u, 300000u}) {
    std::string bytes = BytesOfSize(size);
    const std::string name = std::to_string(size);
    Write(name + " a", bytes);
    bytes.back() = static_cast<char>(bytes.back() + 1);
    Write(name + " b", bytes);
    Write(name + " c", bytes);
  }
  EXPECT_EQ(Run(), kExitDone);
  for (const std::string name : {"1", "4096", "4097", "131072", "131073", "300000"}) {
    EXPECT_FALSE(AreLinked(name + " a", name + " b")) << name;
    EXPECT_TRUE(AreLinked(name + " b", name + " c")) << name;
  }
  EXPECT_EQ(LastLine().substr(0, 15), "6 files linked,");
}

TEST_F(DflTest, EmptyFiles_StayApart) {
  Write("a", "");
  Write("b", "");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_FALSE(AreLinked("a", "b"));
}

TEST_F(DflTest, NamesWithUmlautsBlanksNewLinesAndBackslashes_AreLinked) {
  const std::vector<std::string> names = {"\xC3\xA4\xC3\xB6", " blank ", "new\nline", "back\\slash", "\xFF", "-n"};
  for (const std::string& name : names) Write(name, "content");
  EXPECT_EQ(Run(), kExitDone);
  for (const std::string& name : names) EXPECT_TRUE(AreLinked(name, "-n")) << name;
  EXPECT_EQ(folder_.Names().size(), names.size());
}

TEST_F(DflTest, NamesThatDifferOnlyInCase_AreTwoFiles) {
  Write("Name", "1111");
  Write("NAME", "2222");
  Write("name", "1111");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(AreLinked("Name", "name"));
  EXPECT_FALSE(AreLinked("Name", "NAME"));
  EXPECT_EQ(folder_.Read("NAME"), "2222");
}

TEST_F(DflTest, SymbolicLinks_AreNeitherFollowedNorReplaced) {
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

TEST_F(DflTest, Pipes_AreNeverOpened) {
  folder_.Pipe("a");
  folder_.Pipe("b");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(LastLine(), "0 files linked, 0 bytes saved\n");
}

TEST_F(DflTest, KeptFile_IsTheFirstInByteOrderWithItsTimeAndMode) {
  Write("b/file", "content");
  Write("b.file", "content");
  Write("Z", "content");
  folder_.SetMode("Z", 0444);
  const auto time = std::filesystem::last_write_time(folder_.Native("Z")) - std::chrono::hours(24);
  std::filesystem::last_write_time(folder_.Native("Z"), time);
  EXPECT_EQ(Run(), kExitDone);
  for (const char* name : {"Z", "b.file", "b/file"}) {
    EXPECT_EQ(folder_.Mode(name), 0444u) << name;
    EXPECT_EQ(std::filesystem::last_write_time(folder_.Native(name)), time) << name;
  }
}

TEST_F(DflTest, FilesThatAreLinkedAlready_AreOne) {
  Write("a", "content");
  MakeLink("a", "b");
  MakeLink("a", "c");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(LinksOf("a"), 3u);
  EXPECT_EQ(LastLine(), "0 files linked, 0 bytes saved\n");
}

TEST_F(DflTest, TwoGroupsOfLinksWithEqualContent_Merge) {
  Write("a", "content");
  MakeLink("a", "d");
  Write("b", "content");
  MakeLink("b", "c");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(LinksOf("a"), 4u);
  EXPECT_EQ(LastLine(), "2 files linked, 7 bytes saved\n");
}

TEST_F(DflTest, ManyFilesOfOneSize_AreSortedByTheirContent) {
  constexpr int kFiles = 200;
  const std::string start = BytesOfSize(5000);
  const auto name = [](int index) { return "file" + std::to_string(1000 + index); };
  for (int index = 0; index < kFiles; ++index) Write(name(index), start + std::to_string(10 + index % 50));
  EXPECT_EQ(Run(), kExitDone);
  for (int index = 0; index < kFiles; ++index) {
    EXPECT_EQ(LinksOf(name(index)), 4u) << index;
    EXPECT_TRUE(AreLinked(name(index), name(index % 50))) << index;
    EXPECT_TRUE(folder_.Read(name(index)).ends_with(std::to_string(10 + index % 50))) << index;
  }
}

TEST_F(DflTest, ManyFilesOfOneContent_AreComparedInBatches) {
  for (int index = 0; index < 100; ++index) Write("file" + std::to_string(100 + index), "content");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(LinksOf("file100"), 100u);
  EXPECT_EQ(LastLine(), "99 files linked, 693 bytes saved\n");
}

TEST_F(DflTest, AnyNumberOfThreads_GivesTheSameResult) {
  for (int index = 0; index < 120; ++index) {
    Write("f" + std::to_string(index % 7) + "/" + std::to_string(index), BytesOfSize(1000 + index % 40));
  }
  std::vector<std::string> lines;
  for (const unsigned processors : {1u, 8u}) {
    const host::testing::TempFolder copy;
    std::filesystem::copy(folder_.native(), copy.native(), std::filesystem::copy_options::recursive);
    std::ostringstream output;
    std::ostringstream errors;
    Machine machine;
    machine.processors = processors;
    EXPECT_EQ(RunDfl({copy.native(), "link"}, output, errors, machine), kExitDone);
    lines.push_back(output.str().substr(output.str().find('\n')));
    EXPECT_TRUE(std::filesystem::equivalent(copy.Native("f0/0"), copy.Native("f5/40")));
    EXPECT_TRUE(std::filesystem::equivalent(copy.Native("f0/0"), copy.Native("f3/80")));
  }
  EXPECT_EQ(lines[0], lines[1]);
  EXPECT_THAT(lines[0], HasSubstr("80 files linked"));
}

// Run without rights, in a process of its own: permission bits do not stop an administrator.
TEST_F(DflTest, FilesAndFoldersThatCannotBeRead_AreNamedAndTheRestGoesOn) {
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
  // Files of others may be protected from being linked; then they are named as well.
  EXPECT_EXIT(run_without_rights(), ::testing::ExitedWithCode(kExitProblems),
              "b cannot be read: Permission denied\n(.*\n)*.*locked.* cannot be listed: Permission denied\n");
  folder_.SetMode("locked", 0700);
  EXPECT_FALSE(AreLinked("a", "b"));
}

TEST_F(DflTest, FoldersNestedThreeHundredDeep_AreWalked) {
  std::string deep;
  for (int level = 0; level < 300; ++level) deep += "d/";
  Write(deep + "file", "content");
  Write("file", "content");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(AreLinked("file", deep + "file"));
}

}  // namespace
}  // namespace discwright::tools::dfl
