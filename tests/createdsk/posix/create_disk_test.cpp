// Tests of CreateDsk with links, pipes, modes of files and on a full disk, which need calls of Linux.
#include "tools/createdsk/create_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/createdsk/program_folder.h"

namespace discwright::testing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

std::string FailureIn(const ProgramFolder& folder) {
  std::string path;
  return tools::CreateDisk({&tools::kDiskFormats[0], "mine", false}, folder.Text(), path).failure;
}

TEST(CreateDisk, DeviceAsSource_IsNoFile) {
  const ProgramFolder folder;
  folder.AddDiskIni("[Files]\r\nA.TXT=pipe\r\n");
  mkfifo((folder.Profile() / "pipe").c_str(), 0600);
  EXPECT_THAT(FailureIn(folder), HasSubstr("is not a file; correct A.TXT"));
}

// A profile from another machine must not bring files of this one onto a disk.
TEST(CreateDisk, LinkThatLeadsOutOfTheProfile_IsRefusedByName) {
  const ProgramFolder folder;
  WriteFile(folder.path() / "secret", std::string(512, 's'));
  WriteFile(folder.path() / "elsewhere" / "a.txt", "a");
  folder.AddDiskIni("");
  std::filesystem::create_symlink(folder.path() / "secret", folder.Profile() / "link");
  std::filesystem::create_symlink("../../../elsewhere", folder.Profile() / "sub");
  for (const std::string line :
       {"[Files]\r\nA.TXT=link", "[Files]\r\nA.TXT=sub/a.txt", "Base=link", "BootSector=link"}) {
    folder.AddDiskIni(line + "\r\n");
    EXPECT_THAT(FailureIn(folder), AllOf(HasSubstr(line.find("sub") == line.npos ? "/link" : "/sub/a.txt"),
                                         HasSubstr("leads out of the profile folder")))
        << line;
  }
  std::filesystem::rename(folder.Profile() / "disk.ini", folder.path() / "disk.ini");
  std::filesystem::create_symlink(folder.path() / "disk.ini", folder.Profile() / "disk.ini");
  EXPECT_THAT(FailureIn(folder), HasSubstr("disk.ini is reached through a link"));
}

TEST(CreateDisk, LinksInTheFolderOfTheUser_AreRefusedByName) {
  const ProgramFolder folder;
  folder.AddDiskIni("Own=dos\r\n");
  folder.Add("dos/bootsect.bin", std::string(510, 'x') + "\x55\xAA");
  const auto dos = folder.Profile() / "dos";
  WriteFile(folder.path() / "secret", "s");
  std::filesystem::create_symlink(folder.path() / "secret", dos / "io.sys");
  EXPECT_THAT(FailureIn(folder), AllOf(HasSubstr("dos/io.sys"), HasSubstr("leads out of the profile folder")));
  std::filesystem::remove(dos / "io.sys");
  folder.Add("dos/io.sys", "system");
  EXPECT_EQ(FailureIn(folder), "");
  for (const char* target : {".", "/", "nowhere"}) {
    std::filesystem::create_symlink(target, dos / "link");
    EXPECT_THAT(FailureIn(folder), HasSubstr("dos/link is neither a file nor a folder. Remove it")) << target;
    std::filesystem::remove(dos / "link");
  }
  mkfifo((dos / "pipe").c_str(), 0600);
  EXPECT_THAT(FailureIn(folder), HasSubstr("dos/pipe is neither a file nor a folder"));
  std::filesystem::rename(dos, folder.path() / "elsewhere");
  std::filesystem::create_symlink("../../../elsewhere", dos);
  EXPECT_THAT(FailureIn(folder), AllOf(HasSubstr("/dos is"), HasSubstr("leads out of the profile folder")));
}

TEST(CreateDisk, NamesThatDifferInLetterCaseOnly_AreRefused) {
  const ProgramFolder folder;
  folder.AddDiskIni("Own=dos\r\n");
  folder.Add("dos/bootsect.bin", std::string(510, 'x') + "\x55\xAA");
  folder.Add("dos/io.sys", "1");
  folder.Add("dos/IO.SYS", "2");
  EXPECT_THAT(FailureIn(folder), HasSubstr("dos/io.sys has the same name on the disk as another file"));
  std::filesystem::remove(folder.Profile() / "dos/IO.SYS");
  folder.Add("dos/BOOTSECT.BIN", "2");
  EXPECT_THAT(FailureIn(folder), HasSubstr("dos/bootsect.bin is there twice"));
}

TEST(CreateDisk, LinkWithinTheProfileAndLinkToTheProfile_AreFollowed) {
  const ProgramFolder folder;
  folder.Add("sub/a.txt", "content");
  std::filesystem::create_symlink("sub/a.txt", folder.Profile() / "link");
  folder.AddDiskIni("[Files]\r\nA.TXT=link\r\n");
  std::filesystem::rename(folder.Profile(), folder.path() / "kept elsewhere");
  std::filesystem::create_symlink("../../kept elsewhere", folder.Profile());
  EXPECT_EQ(FailureIn(folder), "");
  EXPECT_EQ(folder.OnDisk("A.TXT"), "content");
}

// An image that could be started would run in place of a program of the same name.
TEST(CreateDisk, ImageAfterAnExecutableBaseAndOlderImage_IsNotExecutable) {
  const ProgramFolder folder;
  folder.AddDiskIni("");
  ASSERT_EQ(FailureIn(folder), "");
  std::filesystem::copy(folder.Image(), folder.Profile() / "base.img");
  for (const auto& file : {folder.Image(), folder.Profile() / "base.img"}) {
    std::filesystem::permissions(file, std::filesystem::perms::all);
  }
  folder.AddDiskIni("Base=base.img\r\n");
  const mode_t before = umask(022);
  EXPECT_EQ(FailureIn(folder), "");
  umask(before);
  EXPECT_EQ(static_cast<unsigned>(std::filesystem::status(folder.Image()).permissions()), 0644u);
}

TEST(CreateDisk, LinkOrPipeInTheImagesPlace_IsRefusedAndNotFollowed) {
  const ProgramFolder folder;
  folder.AddDiskIni("");
  const std::string other(1'474'560, 'o');
  WriteFile(folder.path() / "other", other);
  for (const char* target : {"other", "missing", "files"}) {
    std::filesystem::remove(folder.Image());
    std::filesystem::create_symlink(target, folder.Image());
    EXPECT_THAT(FailureIn(folder), HasSubstr("mine.img is no floppy image, and is not replaced")) << target;
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Image())) << target;
  }
  EXPECT_TRUE(ReadFile(folder.path() / "other") == other);
  std::filesystem::remove(folder.Image());
  mkfifo(folder.Image().c_str(), 0600);
  EXPECT_THAT(FailureIn(folder), HasSubstr("mine.img is no floppy image, and is not replaced"));
}

TEST(CreateDskOnAFullDisk, ImageThatCannotBeWrittenWhole_LeavesTheOlderOne) {
  const ProgramFolder folder;
  const std::filesystem::path program = folder.path() / "CreateDsk";
  std::filesystem::copy(CREATEDSK_PROGRAM, program);
  folder.AddDiskIni("");
  const std::string older(1'474'560, 'o');
  WriteFile(folder.Image(), older);
  // A limit on the size of files stands for a full disk.
  const ShellEnd end = folder.Run("ulimit -f 100; " + ShellPath(program) + " -t 144 mine");
  EXPECT_EQ(end.exit_code, 1) << end.output;
  EXPECT_THAT(end.output, HasSubstr("mine.img cannot be written"));
  EXPECT_TRUE(ReadFile(folder.Image()) == older);
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("CreateDsk", "files", "mine.img"));
}

}  // namespace
}  // namespace discwright::testing
