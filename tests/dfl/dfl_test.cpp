// Tests of whole runs: what they change in a folder and what they print.
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
  EXPECT_THAT(errors.str(), HasSubstr("missing cannot be listed: "));
  EXPECT_THAT(output.str(), HasSubstr("0 files linked, 0 bytes saved, some files were left alone\n"));
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

TEST_F(DflTest, NamesWithUmlautsAndBlanks_AreLinked) {
  const std::vector<std::string> names = {"\xC3\xA4\xC3\xB6", " blank s", "[x]", "-n"};
  for (const std::string& name : names) Write(name, "content");
  EXPECT_EQ(Run(), kExitDone);
  for (const std::string& name : names) EXPECT_TRUE(AreLinked(name, "-n")) << name;
  EXPECT_EQ(folder_.Names().size(), names.size());
}

TEST_F(DflTest, KeptFile_IsTheFirstInByteOrderWithItsTimeAndReadOnlyMark) {
  Write("b/file", "content");
  Write("b.file", "content");
  Write("Z", "content");
  folder_.SetReadOnly("Z");
  const auto time = std::filesystem::last_write_time(folder_.Path("Z")) - std::chrono::hours(24);
  std::filesystem::last_write_time(folder_.Path("Z"), time);
  EXPECT_EQ(Run(), kExitDone);
  for (const char* name : {"Z", "b.file", "b/file"}) {
    EXPECT_TRUE(folder_.IsReadOnly(name)) << name;
    EXPECT_EQ(std::filesystem::last_write_time(folder_.Path(name)), time) << name;
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
  std::vector<std::string> lines;
  for (const unsigned processors : {1u, 8u}) {
    const host::testing::TempFolder folder;
    for (int index = 0; index < 120; ++index)
      folder.Write("f" + std::to_string(index % 7) + "/" + std::to_string(index), BytesOfSize(1000 + index % 40));
    std::ostringstream output;
    std::ostringstream errors;
    Machine machine;
    machine.processors = processors;
    EXPECT_EQ(RunDfl({folder.native(), "link"}, output, errors, machine), kExitDone);
    lines.push_back(output.str().substr(output.str().find('\n')));
    EXPECT_TRUE(std::filesystem::equivalent(folder.Path("f0/0"), folder.Path("f5/40")));
    EXPECT_TRUE(std::filesystem::equivalent(folder.Path("f0/0"), folder.Path("f3/80")));
  }
  EXPECT_EQ(lines[0], lines[1]);
  EXPECT_THAT(lines[0], HasSubstr("80 files linked"));
}

}  // namespace
}  // namespace discwright::tools::dfl
