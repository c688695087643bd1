// Tests of disks with the user's own system: a floppy image, or system files with a boot sector.
#include "tools/createdsk/own_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/createdsk/disks.h"
#include "tests/createdsk/program_folder.h"
#include "tools/createdsk/create_disk.h"

namespace discwright::tools {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::Pattern;
using testing::ReadFile;

constexpr std::size_t kRootBegin = 19UL * 512;  // where the root folder of a floppy of 1.44 MB begins
constexpr std::size_t kDataBegin = 33UL * 512;  // where its files begin
constexpr std::size_t kRecordSize = 32;

std::string SectorWith(char filler) { return std::string(510, filler) + "\x55\xAA"; }

class OwnSystem : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!testing::HasShell()) GTEST_SKIP() << "no shell here";
    folder_.Add("sector.bin", SectorWith('L'));
    folder_.Add("loader.bin", "the loader");
    folder_.Add("always.txt", "always");
    folder_.AddDiskIni(
        "BootSector=sector.bin\r\nOwn=dos\r\n[Files]\r\nALWAYS.TXT=always.txt\r\n[WithoutOwn]\r\nLOADER.BIN=loader."
        "bin\r\n");
  }

  std::string Failure() {
    std::string path;
    return CreateDisk({&kDiskFormats[0], "mine", false}, folder_.Text(), path).failure;
  }
  void MakeSound() {
    ASSERT_EQ(Failure(), "");
    const auto end = folder_.Run("fsck.fat -n -v " + testing::ShellPath(folder_.Image()));
    EXPECT_EQ(end.exit_code, 0) << end.output;
  }
  std::string Listing() {
    return folder_.Run("mdir -a -b -/ -i " + testing::ShellPath(folder_.Image()) + " ::").output;
  }
  // The first `size` bytes of an entry of the root folder.
  std::string Record(std::size_t index, std::size_t size) const {
    return ReadFile(folder_.Image()).substr(kRootBegin + index * kRecordSize, size);
  }
  // Puts a floppy image of the user, made by other programs, into the folder.
  void AddImage(const std::string& name, int kilobytes = 1440, const std::string& folder = "dos") {
    std::filesystem::create_directories(folder_.Profile() / folder);
    const std::string image = testing::ShellPath(folder_.Profile() / folder / name);
    const auto end = folder_.Run("mkfs.fat -C -n USERS -F 12 " + image + " " + std::to_string(kilobytes) +
                                 " && echo system > io.sys && mcopy -i " + image + " io.sys ::IO.SYS");
    ASSERT_EQ(end.exit_code, 0) << end.output;
  }
  void AddSystemFiles() {
    folder_.Add("dos/bootsect.bin", SectorWith('D'));
    folder_.Add("dos/autoexec.bat", "@echo off");
    folder_.Add("dos/IO.SYS", Pattern(40000));
    folder_.Add("dos/msdos.sys", Pattern(1000));
    folder_.Add("dos/COMMAND.COM", Pattern(5000));
    folder_.Add("dos/tools/edit.com", Pattern(3000));
  }

  testing::ProgramFolder folder_;
};

TEST_F(OwnSystem, MissingOrEmptyFolder_GivesTheDiskWithTheLoader) {
  for (const bool is_there : {false, true}) {
    if (is_there) std::filesystem::create_directories(folder_.Profile() / "dos" / "empty");
    MakeSound();
    EXPECT_EQ(folder_.OnDisk("LOADER.BIN"), "the loader");
    EXPECT_EQ(folder_.OnDisk("ALWAYS.TXT"), "always");
    EXPECT_EQ(ReadFile(folder_.Image()).substr(100, 400), std::string(400, 'L'));
  }
}

TEST_F(OwnSystem, Image_IsTheBaseAndKeepsItsBootSector) {
  AddImage("My start disk.IMG");
  const std::string users = ReadFile(folder_.Profile() / "dos" / "My start disk.IMG");
  MakeSound();
  EXPECT_EQ(folder_.OnDisk("IO.SYS"), "system\n");
  EXPECT_EQ(folder_.OnDisk("ALWAYS.TXT"), "always");
  EXPECT_THAT(Listing(), Not(HasSubstr("LOADER")));
  const std::string image = ReadFile(folder_.Image());
  EXPECT_EQ(image.substr(0, 43), users.substr(0, 43));
  EXPECT_EQ(image.substr(43, 11), "MINE       ");
  EXPECT_EQ(image.substr(54, 458), users.substr(54, 458));
}

TEST_F(OwnSystem, SystemFiles_StandFirstInOnePieceAndAreHidden) {
  AddSystemFiles();
  MakeSound();
  EXPECT_EQ(Record(0, 12), std::string("IO      SYS\x27", 12));
  EXPECT_EQ(Record(1, 12), std::string("MSDOS   SYS\x27", 12));
  EXPECT_EQ(Record(2, 12), std::string("MINE       \x08", 12));
  const std::string image = ReadFile(folder_.Image());
  EXPECT_EQ(image.substr(kDataBegin, 40000), Pattern(40000)) << "from the first cluster on, in one piece";
  EXPECT_EQ(image.substr(kDataBegin + 79 * 512, 1000), Pattern(1000));
  EXPECT_EQ(image.substr(62, 448), std::string(448, 'D'));
  EXPECT_EQ(folder_.OnDisk("COMMAND.COM"), Pattern(5000));
  EXPECT_EQ(folder_.OnDisk("TOOLS/EDIT.COM"), Pattern(3000));
  EXPECT_EQ(folder_.OnDisk("AUTOEXEC.BAT"), "@echo off");
  EXPECT_EQ(folder_.OnDisk("ALWAYS.TXT"), "always");
  EXPECT_THAT(Listing(), AllOf(Not(HasSubstr("LOADER")), Not(HasSubstr("BOOTSECT"))));
}

TEST_F(OwnSystem, FilesOfOtherSystems_StandFirstToo) {
  folder_.Add("dos/bootsect.bin", SectorWith('D'));
  folder_.Add("dos/a.txt", "a");
  folder_.Add("dos/ibmdos.com", "2");
  folder_.Add("dos/ibmbio.com", "1");
  MakeSound();
  EXPECT_EQ(Record(0, 11) + Record(1, 11), "IBMBIO  COMIBMDOS  COM");
  for (const char* name : {"ibmdos.com", "ibmbio.com"}) std::filesystem::remove(folder_.Profile() / "dos" / name);
  folder_.Add("dos/kernel.sys", "k");
  MakeSound();
  EXPECT_EQ(Record(0, 11), "KERNEL  SYS");
}

TEST_F(OwnSystem, FileOfDiskIni_ReplacesTheUsersFile) {
  AddSystemFiles();
  folder_.Add("dos/always.txt", "of the user");
  MakeSound();
  EXPECT_EQ(folder_.OnDisk("ALWAYS.TXT"), "always");
}

TEST_F(OwnSystem, LetterCaseOfFolderAndFiles_DoesNotMatter) {
  folder_.Add("DOS/BOOTSECT.BIN", SectorWith('D'));
  folder_.Add("DOS/Io.Sys", "system");
  MakeSound();
  EXPECT_EQ(folder_.OnDisk("IO.SYS"), "system");
  std::filesystem::remove_all(folder_.Profile() / "DOS");
  AddImage("A.Img", 1440, "Dos");
  MakeSound();
  EXPECT_EQ(folder_.OnDisk("IO.SYS"), "system\n");
}

TEST_F(OwnSystem, TwoImages_AreRefusedByTheirNames) {
  AddImage("a.img");
  AddImage("b.img");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("dos/a.img and dos/b.img"), HasSubstr("Leave only one of them")));
}

TEST_F(OwnSystem, ImageBesideOtherFiles_IsRefused) {
  AddImage("a.img");
  folder_.Add("dos/readme.txt", "x");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("dos/a.img, and other files: dos/readme.txt"), HasSubstr("Leave only")));
  std::filesystem::remove(folder_.Profile() / "dos" / "readme.txt");
  folder_.Add("dos/bootsect.bin", SectorWith('D'));
  EXPECT_THAT(Failure(), HasSubstr("dos/a.img, and other files: dos/bootsect.bin"));
}

TEST_F(OwnSystem, ImageOfAnotherSizeOrContent_IsRefused) {
  AddImage("a.img", 720);
  EXPECT_THAT(Failure(), AllOf(HasSubstr("a.img has 737280 bytes"), HasSubstr("1474560"),
                               HasSubstr("Put another one into that folder.")));
  folder_.Add("dos/a.img", std::string(1'474'560, '\0'));
  EXPECT_THAT(Failure(), HasSubstr("[Disk] Own dos/a.img is not a FAT12 floppy"));
}

TEST_F(OwnSystem, FilesWithoutABootSector_SayWhatIsMissing) {
  folder_.Add("dos/io.sys", "x");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("dos has no bootsect.bin"), HasSubstr("512 bytes")));
  folder_.Add("dos/bootsect.bin", "short");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("bootsect.bin has 5 bytes; a boot sector has exactly 512"),
                               HasSubstr("Put another one into that folder.")));
  folder_.Add("dos/bootsect.bin", std::string(512, 'x'));
  EXPECT_THAT(Failure(), HasSubstr("bootsect.bin does not end with 55 AA"));
}

TEST_F(OwnSystem, BootSectorWithoutASystem_SaysWhatIsMissing) {
  folder_.Add("dos/bootsect.bin", SectorWith('D'));
  folder_.Add("dos/sub/io.sys", "x");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("no system"), HasSubstr("KERNEL.SYS")));
}

TEST_F(OwnSystem, NameThatDosCannotHave_IsNamed) {
  AddSystemFiles();
  folder_.Add("dos/tools/a long name.txt", "x");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("a long name.txt has no DOS name"), HasSubstr("Remove it")));
}

TEST_F(OwnSystem, FileInPlaceOfTheFolder_IsRefused) {
  folder_.Add("dos", "x");
  EXPECT_THAT(Failure(), HasSubstr("dos is not a folder. Move it away"));
}

TEST_F(OwnSystem, MoreThanFits_NamesTheFirstFileThatDoesNot) {
  AddSystemFiles();
  folder_.Add("dos/big.bin", std::string(1'450'000, 'x'));
  EXPECT_THAT(Failure(), AllOf(HasSubstr("BIG.BIN (dos/big.bin) does not fit on the disk"), HasSubstr("missing, and")));
}

}  // namespace
}  // namespace discwright::tools
