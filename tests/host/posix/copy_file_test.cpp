// Tests of copying links, pipes and devices, and of the attributes that only POSIX files have.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>

#include "host/files.h"
#include "host/left_files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

Status Copy(const TempFolder& folder, std::string_view from, std::string_view to) {
  return CopyFileWithProgress(folder.Core(from), folder.Core(to), nullptr);
}

TEST(CopyFile, FileOfUnknownSize_IsCopiedToItsEnd) {
  const TempFolder folder;
  std::vector<std::int64_t> told;
  const CopyRoutine routine = [&](CopyEvent, std::int64_t transferred) { return told.push_back(transferred), true; };
  EXPECT_TRUE(CopyFileWithProgress("\\proc\\version", folder.Core("to"), routine).ok());
  const std::string content = folder.Read("to");
  EXPECT_FALSE(content.empty());
  EXPECT_THAT(told, ElementsAre(0, static_cast<std::int64_t>(content.size())));
}

TEST(CopyFile, ModificationTime_IsKeptToTheNanosecond) {
  const TempFolder folder;
  folder.Write("from", "x");
  const timespec times[2] = {{1, 0}, {946684800, 123456000}};
  ASSERT_EQ(utimensat(AT_FDCWD, folder.Native("from").c_str(), times, 0), 0);
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  struct stat facts {};
  ASSERT_EQ(stat(folder.Native("to").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mtim.tv_sec, 946684800);
  EXPECT_EQ(facts.st_mtim.tv_nsec, 123456000);
}

TEST(CopyFile, SourceThatOnlyOthersMayUse_GivesACopyWithItsOtherBits) {
  const TempFolder folder;
  folder.Write("from", "x");
  folder.SetMode("from", 0455);
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  EXPECT_EQ(folder.Mode("to"), 0655u);
}

TEST(CopyWholeFile, Program_StaysExecutable) {
  const TempFolder folder;
  folder.Write("from", "x");
  folder.SetMode("from", 0755);
  ASSERT_TRUE(CopyWholeFile(folder.Core("from"), folder.Core("to")).ok());
  EXPECT_EQ(folder.Mode("to"), 0755u);
}

TEST(CopyWholeFile, ProgramThatIsKilledMidway_LeavesNothingUnderTheFinalName) {
  const TempFolder folder;
  folder.Write("from", std::string(65536, 'x'));
  const auto copy_until_killed = [&] {
    std::signal(SIGXFSZ, SIG_DFL);  // kills the program when a file becomes larger than the limit
    const rlimit limit{4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    CopyWholeFile(folder.Core("from"), folder.Core("to"));
  };
  EXPECT_EXIT(copy_until_killed(), ::testing::KilledBySignal(SIGXFSZ), "");
  EXPECT_FALSE(std::filesystem::exists(folder.Path("to")));
  EXPECT_EQ(folder.Names().size(), 2U) << "the program was not killed midway";
  RemoveLeftFiles(folder.Core());
  EXPECT_THAT(folder.Names(), ElementsAre("from"));
}

TEST(CopyFile, LargeFile_ReportsSeveralPieces) {
  const TempFolder folder;
  folder.Write("from", std::string(40 << 20, 'x'));
  std::size_t told = 0;
  const CopyRoutine routine = [&](CopyEvent, std::int64_t) { return ++told, true; };
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("from"), folder.Core("to"), routine).ok());
  EXPECT_GE(told, 4u);
}

TEST(CopyFile, TargetIsALink_ReplacesTheLinkAndNotWhatItLeadsTo) {
  const TempFolder folder;
  const TempFolder elsewhere;
  folder.Write("from", "new");
  elsewhere.Write("precious", "old");
  folder.Link(elsewhere.Native("precious"), "link");
  folder.Link("nowhere", "broken");
  ASSERT_TRUE(Copy(folder, "from", "link").ok());
  ASSERT_TRUE(Copy(folder, "from", "broken").ok());
  EXPECT_EQ(elsewhere.Read("precious"), "old");
  EXPECT_FALSE(std::filesystem::is_symlink(folder.Native("link")));
  EXPECT_EQ(folder.Read("link"), "new");
  EXPECT_EQ(folder.Read("broken"), "new");
}

TEST(CopyFile, SourceIsALink_CopiesWhatItLeadsTo) {
  const TempFolder folder;
  folder.Write("file", "content");
  folder.Link("file", "link");
  ASSERT_TRUE(Copy(folder, "link", "to").ok());
  EXPECT_FALSE(std::filesystem::is_symlink(folder.Native("to")));
  EXPECT_EQ(folder.Read("to"), "content");
}

TEST(CopyFile, TargetLeadsToTheSource_IsAnErrorThatLosesNothing) {
  const TempFolder folder;
  folder.Write("File", "content");
  folder.Link("File", "link");
  std::filesystem::create_hard_link(folder.Native("File"), folder.Native("hard"));
  for (const char* target : {"link", "hard"}) {
    EXPECT_FALSE(Copy(folder, "File", target).ok()) << target;
    EXPECT_EQ(folder.Read("File"), "content");
  }
  EXPECT_FALSE(Copy(folder, "link", "File").ok());
  EXPECT_EQ(folder.Read("File"), "content");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Native("link")));
}

TEST(CopyFile, SourceIsNoRegularFile_IsOfTheWrongKindAndNotOpened) {
  const TempFolder folder;
  folder.Pipe("pipe");
  folder.Link("/dev/zero", "zero");
  folder.MakeFolder("folder");
  for (const char* name : {"pipe", "zero", "folder"}) {
    EXPECT_EQ(Copy(folder, name, "to").error, ErrorClass::kWrongKind) << name;
  }
  EXPECT_EQ(folder.Read("to"), "<missing>");
}

TEST(CopyFile, TargetIsNoRegularFile_StaysAsItIs) {
  const TempFolder folder;
  folder.Write("from", "x");
  folder.Pipe("pipe");
  folder.MakeFolder("folder");
  EXPECT_EQ(Copy(folder, "from", "pipe").error, ErrorClass::kWrongKind);
  EXPECT_EQ(Copy(folder, "from", "folder").error, ErrorClass::kWrongKind);
  EXPECT_THAT(folder.Names(), ElementsAre("folder", "from", "pipe"));
}

TEST(CopyFile, NamesOfEveryKind_AreCopied) {
  const TempFolder folder;
  folder.Write("from", "x");
  for (const char* name : {"with blank", "quote'\"", "$HOME `id`", "line\nend", "Ümläut €", "-dash", "\xFF raw"}) {
    EXPECT_TRUE(Copy(folder, "from", name).ok()) << name;
    EXPECT_EQ(folder.Read(name), "x") << name;
  }
}

}  // namespace
}  // namespace discwright::host
