// Tests of whole files: the targets of links, permission bits, and files of unknown size.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

TEST(ReadWholeFile, FileOfUnknownSize_IsReadToItsEnd) {
  const std::string content = ReadWholeFile("\\proc\\self\\status").value;
  EXPECT_THAT(content, ::testing::StartsWith("Name:"));
}

TEST(ReadWholeFile, PipeOrDevice_IsOfTheWrongKindAndNotOpened) {
  const TempFolder folder;
  folder.Pipe("pipe");
  folder.Link("/dev/zero", "zero");
  for (const char* name : {"pipe", "zero"}) {
    EXPECT_EQ(ReadWholeFile(folder.Core(name)).status.error, ErrorClass::kWrongKind) << name;
  }
}

TEST(WriteWholeFile, LongerExistingFile_KeepsItsMode) {
  const TempFolder folder;
  folder.Write("file", "a long old content");
  folder.SetMode("file", 0640);
  EXPECT_TRUE(WriteWholeFile(folder.Core("file"), "new").ok());
  EXPECT_EQ(folder.Read("file"), "new");
  EXPECT_EQ(folder.Mode("file"), 0640u);
}

TEST(WriteWholeFile, KeptTimes_AreThoseOfTheLastChangeAndTheLastReadToTheNanosecond) {
  const TempFolder folder;
  folder.Write("file", "old");
  folder.SetMode("file", 0440);
  const timespec times[2] = {{1000000000, 777}, {946684800, 123456000}};
  ASSERT_EQ(utimensat(AT_FDCWD, folder.Native("file").c_str(), times, 0), 0);
  ASSERT_TRUE(ClearAttributes(folder.Core("file")).ok());
  ASSERT_TRUE(WriteWholeFile(folder.Core("file"), "new", FileTimes::kKept).ok());
  struct stat facts {};
  ASSERT_EQ(stat(folder.Native("file").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_atim.tv_sec, 1000000000);
  EXPECT_EQ(facts.st_atim.tv_nsec, 777);
  EXPECT_EQ(facts.st_mtim.tv_sec, 946684800);
  EXPECT_EQ(facts.st_mtim.tv_nsec, 123456000);
  EXPECT_EQ(folder.Mode("file"), 0640u);
}

TEST(WriteWholeFile, LongestPossibleName_IsWritten) {
  const TempFolder folder;
  const std::string name(255, 'n');
  EXPECT_TRUE(WriteWholeFile(folder.Core(name), "x").ok());
  EXPECT_EQ(folder.Read(name), "x");
}

TEST(WriteWholeFile, ReaderOfTheOldFile_KeepsTheOldContent) {
  const TempFolder folder;
  folder.Write("file", "old");
  std::ifstream reader(folder.Native("file"));
  ASSERT_TRUE(WriteWholeFile(folder.Core("file"), "new").ok());
  std::string content;
  reader >> content;
  EXPECT_EQ(content, "old");
}

TEST(WriteWholeFile, LinkOfAnyKind_IsReplacedAndItsTargetStays) {
  const TempFolder folder;
  folder.Write("precious", "content");
  folder.Link("precious", "link");
  folder.Link("missing", "broken");
  folder.Link("loop", "loop");
  for (const char* name : {"link", "broken", "loop"}) {
    EXPECT_TRUE(WriteWholeFile(folder.Core(name), "new").ok()) << name;
    EXPECT_FALSE(std::filesystem::is_symlink(folder.Native(name))) << name;
    EXPECT_EQ(folder.Read(name), "new");
  }
  EXPECT_EQ(folder.Read("precious"), "content");
  EXPECT_THAT(folder.Names(), ElementsAre("broken", "link", "loop", "precious"));
}

TEST(WriteWholeFile, PipeOrDevice_IsOfTheWrongKind) {
  const TempFolder folder;
  folder.Pipe("pipe");
  for (const std::string& path : {folder.Core("pipe"), std::string("\\dev\\zero")}) {
    EXPECT_EQ(WriteWholeFile(path, "x").error, ErrorClass::kWrongKind) << path;
  }
  EXPECT_THAT(folder.Names(), ElementsAre("pipe"));
}

}  // namespace
}  // namespace discwright::host
