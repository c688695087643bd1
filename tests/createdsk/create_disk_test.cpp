// Tests of images made from profile folders. fsck.fat and mtools look at the images.
#include "tools/createdsk/create_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

#include "tests/createdsk/disks.h"
#include "tests/createdsk/program_folder.h"

namespace discwright::tools {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::Pattern;
using testing::ReadFile;
using testing::WriteFile;

constexpr std::size_t k144Space = 2847UL * 512;
constexpr std::size_t k288Space = 2863UL * 1024;
// Sizes around those of a sector and a cluster, and one of many clusters.
constexpr std::size_t kSizes[] = {0, 1, 511, 512, 513, 1023, 1024, 1025, 70000};

class CreateDiskTest : public ::testing::TestWithParam<const DiskFormat*> {
 protected:
  void SetUp() override {
    if (!testing::HasShell()) GTEST_SKIP() << "no shell here";
  }

  std::string FailureWith(const DiskFormat& format, const std::string& profile = "mine", bool selection = false) {
    std::string path;
    return CreateDisk({&format, profile, selection}, folder_.Text(), path).failure;
  }
  std::string Failure() { return FailureWith(kDiskFormats[0]); }

  // Makes the disk and checks it with fsck.fat.
  void MakeSound(const DiskFormat& format) {
    ASSERT_EQ(FailureWith(format), "");
    ExpectSound();
    EXPECT_EQ(std::filesystem::file_size(folder_.Image()), format.ImageBytes());
  }
  void ExpectSound() {
    const auto end = folder_.Run("fsck.fat -n -v " + testing::ShellPath(folder_.Image()));
    EXPECT_EQ(end.exit_code, 0) << end.output;
  }

  // Makes the base image "base.img" in the profile with mkfs.fat and mtools.
  void MakeBase(const DiskFormat& format, const std::string& files) {
    std::filesystem::create_directories(folder_.Profile());
    const std::string image = testing::ShellPath(folder_.Profile() / "base.img");
    const auto end =
        folder_.Run("mkfs.fat -C -n BASE -F 12 " + image + " " + std::to_string(format.ImageBytes() / 1024) +
                    " && cd " + testing::ShellPath(folder_.Profile()) + " && " + files);
    ASSERT_EQ(end.exit_code, 0) << end.output;
  }

  testing::ProgramFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Both, CreateDiskTest, ::testing::Values(&kDiskFormats[0], &kDiskFormats[1]),
                         [](const auto& instance) { return std::string(instance.param->type); });

TEST_P(CreateDiskTest, FilesAroundTheSectorSize_ComeBackByteByByte) {
  std::string ini = "[Files]\r\n";
  for (const std::size_t size : kSizes) {
    const std::string name = std::to_string(size) + ".bin";
    folder_.Add(name, Pattern(size));
    ini.append(name).append("=").append(name).append("\r\n");
  }
  folder_.AddDiskIni(ini);
  MakeSound(*GetParam());
  for (const std::size_t size : kSizes) {
    EXPECT_EQ(folder_.OnDisk(std::to_string(size) + ".BIN"), Pattern(size)) << size;
  }
}

TEST_P(CreateDiskTest, FoldersWithManyFiles_AreSound) {
  std::string ini = "[Files]\r\n";
  for (int i = 0; i < 150; ++i) {
    const std::string name = "F" + std::to_string(i);
    folder_.Add("many/" + name, "content of " + name);
    ini.append("SUB\\MANY\\").append(name).append("=many\\").append(name).append("\r\n");
  }
  folder_.AddDiskIni(ini + "SUB\\OTHER\\LAST.TXT=many/F7\r\n");
  MakeSound(*GetParam());
  EXPECT_EQ(folder_.OnDisk("SUB/MANY/F0"), "content of F0");
  EXPECT_EQ(folder_.OnDisk("SUB/MANY/F149"), "content of F149");
  EXPECT_EQ(folder_.OnDisk("SUB/OTHER/LAST.TXT"), "content of F7");
}

TEST_P(CreateDiskTest, FileThatFillsTheDisk_FitsToTheByte) {
  const std::size_t space = GetParam() == &kDiskFormats[0] ? k144Space : k288Space;
  folder_.Add("a.bin", Pattern(space));
  folder_.AddDiskIni("[Files]\r\nA.BIN=a.bin\r\n");
  MakeSound(*GetParam());
  EXPECT_EQ(folder_.OnDisk("A.BIN"), Pattern(space));
}

TEST_P(CreateDiskTest, FileOneByteTooLarge_LeavesTheOlderImage) {
  const std::size_t space = GetParam() == &kDiskFormats[0] ? k144Space : k288Space;
  folder_.Add("a.bin", Pattern(space + 1));
  folder_.AddDiskIni("[Files]\r\nA.BIN=a.bin\r\n");
  const std::string older(GetParam()->ImageBytes(), 'o');
  WriteFile(folder_.Image(), older);
  EXPECT_THAT(FailureWith(*GetParam()), AllOf(HasSubstr("A.BIN (a.bin)"), HasSubstr(" 1 byte is missing")));
  EXPECT_TRUE(ReadFile(folder_.Image()) == older);
}

TEST_P(CreateDiskTest, NothingButALabel_IsASoundEmptyDisk) {
  folder_.AddDiskIni("");
  MakeSound(*GetParam());
  EXPECT_THAT(folder_.Run("mlabel -s -i " + testing::ShellPath(folder_.Image()) + " ::").output, HasSubstr("MINE"));
}

TEST_P(CreateDiskTest, BaseOfTheUser_IsExtended) {
  folder_.Add("io.sys", Pattern(40000));
  folder_.Add("new.txt", Pattern(900));
  folder_.Add("other.sys", Pattern(1300));
  MakeBase(*GetParam(),
           "mcopy -i base.img io.sys ::IO.SYS && mmd -i base.img ::DOS && "
           "mcopy -i base.img new.txt ::DOS/OLD.TXT && mcopy -i base.img new.txt '::A long file name.text'");
  folder_.Add("disk.ini",
              "[Disk]\r\nImage=mine.img\r\nBase=base.img\r\n[Files]\r\nDOS\\NEW.TXT=new.txt\r\n"
              "DOS\\OLD.TXT=other.sys\r\nMORE\\A.TXT=new.txt\r\n");
  const std::string base = ReadFile(folder_.Profile() / "base.img");
  MakeSound(*GetParam());
  EXPECT_EQ(folder_.OnDisk("IO.SYS"), Pattern(40000));
  EXPECT_EQ(folder_.OnDisk("A long file name.text"), Pattern(900));
  EXPECT_EQ(folder_.OnDisk("DOS/NEW.TXT"), Pattern(900));
  EXPECT_EQ(folder_.OnDisk("DOS/OLD.TXT"), Pattern(1300));
  EXPECT_EQ(folder_.OnDisk("MORE/A.TXT"), Pattern(900));
  EXPECT_EQ(ReadFile(folder_.Image()).substr(0, 512), base.substr(0, 512));
  EXPECT_EQ(ReadFile(folder_.Profile() / "base.img"), base);
}

TEST_P(CreateDiskTest, BaseWithBootSectorAndLabel_IsSound) {
  MakeBase(*GetParam(), "true");
  std::string boot(512, '\x90');
  boot[510] = '\x55';
  boot[511] = '\xAA';
  folder_.Add("boot.bin", boot);
  folder_.AddDiskIni("Base=base.img\r\nBootSector=boot.bin\r\n");
  MakeSound(*GetParam());
  const std::string image = ReadFile(folder_.Image());
  EXPECT_EQ(image.substr(0, 3), "\x90\x90\x90");
  EXPECT_EQ(image.substr(62, 450), boot.substr(62));
  EXPECT_EQ(image.substr(43, 11), "MINE       ");
}

TEST_F(CreateDiskTest, MadeTwice_HasTheSameBytes) {
  folder_.Add("a.txt", "text");
  folder_.AddDiskIni("[Files]\r\nDOS\\A.TXT=a.txt\r\n");
  ASSERT_EQ(Failure(), "");
  const std::string first = ReadFile(folder_.Image());
  folder_.Add("a.txt", "text");  // written again, so that its time changes
  ASSERT_EQ(Failure(), "");
  EXPECT_TRUE(ReadFile(folder_.Image()) == first);
}

TEST_F(CreateDiskTest, WithSelection_TakesItsFiles) {
  folder_.Add("a.txt", "all");
  folder_.Add("b.txt", "selected");
  folder_.AddDiskIni("[Files]\r\nA.TXT=a.txt\r\n[Selection]\r\nA.TXT=b.txt\r\nB.TXT=b.txt\r\n");
  ASSERT_EQ(Failure(), "");
  EXPECT_EQ(folder_.OnDisk("A.TXT"), "all");
  ASSERT_EQ(FailureWith(kDiskFormats[0], "mine", true), "");
  EXPECT_EQ(folder_.OnDisk("A.TXT"), "selected");
  EXPECT_EQ(folder_.OnDisk("B.TXT"), "selected");
}

TEST_F(CreateDiskTest, MissingProfile_ListsThoseThatExist) {
  folder_.AddDiskIni("");
  WriteFile(folder_.Disks() / "other" / "disk.ini", "");
  WriteFile(folder_.Disks() / "file", "");
  EXPECT_THAT(FailureWith(kDiskFormats[0], "none"),
              AllOf(HasSubstr("\"none\""), HasSubstr("take one of mine, other.")));
  EXPECT_THAT(FailureWith(kDiskFormats[0], "file"), HasSubstr("There is no disk profile \"file\""));
}

TEST_F(CreateDiskTest, WithoutAnyProfile_IsAFailureThatSaysSo) {
  EXPECT_THAT(Failure(), HasSubstr("There are no disk profiles in"));
  std::filesystem::remove_all(folder_.Disks());
  EXPECT_THAT(Failure(), HasSubstr("There are no disk profiles in"));
}

TEST_F(CreateDiskTest, ProfileNameThatLeadsElsewhere_IsRefused) {
  folder_.AddDiskIni("");
  for (const std::string name : {"..", ".", "mine/", "../disks/mine", "..\\disks\\mine", "x/../mine", "mi*e"}) {
    EXPECT_THAT(FailureWith(kDiskFormats[0], name), HasSubstr("is not the name of a disk profile")) << name;
  }
}

TEST_F(CreateDiskTest, MissingDiskIni_IsNamed) {
  folder_.Add("readme.txt", "");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("disk.ini"), HasSubstr("cannot be read")));
}

TEST_F(CreateDiskTest, WrongDiskIni_IsNamedWithItsField) {
  folder_.Add("disk.ini", "[Disk]\r\nImage=mine.img\r\nLabel=MUCH TOO LONG\r\n");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("disk.ini: [Disk] Label"), HasSubstr("shorten")));
}

TEST_F(CreateDiskTest, MissingSource_IsNamedAndNothingIsWritten) {
  folder_.AddDiskIni("[Files]\r\nA.TXT=none.txt\r\n");
  EXPECT_THAT(Failure(), AllOf(HasSubstr("none.txt is missing"), HasSubstr("A.TXT")));
  EXPECT_THAT(folder_.Names(), ElementsAre("files"));
}

TEST_F(CreateDiskTest, FolderAsSource_IsNoFile) {
  folder_.Add("sub/x", "");
  folder_.AddDiskIni("[Files]\r\nA.TXT=sub\r\n");
  EXPECT_THAT(Failure(), HasSubstr("is not a file; correct A.TXT"));
}

TEST_F(CreateDiskTest, SourceNamesWithUmlauts_AreFoundInBothEncodings) {
  folder_.Add("\xC3\xA4.txt", "umlaut");
  folder_.AddDiskIni("[Files]\r\nA.TXT=\xC3\xA4.txt\r\n");
  EXPECT_EQ(Failure(), "");
  folder_.AddDiskIni("[Files]\r\nA.TXT=\xE4.txt\r\n");
  EXPECT_EQ(Failure(), "");
  EXPECT_EQ(folder_.OnDisk("A.TXT"), "umlaut");
}

TEST_F(CreateDiskTest, BaseOfTheOtherSize_IsRefused) {
  folder_.AddDiskIni("Base=base.img\r\n");
  folder_.Add("base.img", std::string(2'949'120, '\0'));
  EXPECT_THAT(Failure(), AllOf(HasSubstr("base.img has 2949120 bytes"), HasSubstr("1474560")));
  folder_.Add("base.img", "");
  EXPECT_THAT(FailureWith(kDiskFormats[1]), AllOf(HasSubstr("base.img has 0 bytes"), HasSubstr("2949120")));
}

TEST_F(CreateDiskTest, BaseThatIsMissingOrNoFloppy_IsRefused) {
  folder_.AddDiskIni("Base=base.img\r\n");
  EXPECT_THAT(Failure(), HasSubstr("base.img is missing"));
  folder_.Add("base.img", std::string(1'474'560, '\0'));
  EXPECT_THAT(Failure(), HasSubstr("Base base.img is not a FAT12 floppy"));
}

TEST_F(CreateDiskTest, BaseOfFat16_IsRefused) {
  std::filesystem::create_directories(folder_.Profile());
  const std::string image = testing::ShellPath(folder_.Profile() / "base.img");
  const auto end = folder_.Run("mkfs.fat -C -F 16 -s 1 " + image + " 2880");
  ASSERT_EQ(end.exit_code, 0) << end.output;
  folder_.AddDiskIni("Base=base.img\r\n");
  EXPECT_THAT(FailureWith(kDiskFormats[1]), HasSubstr("is not a FAT12 floppy"));
}

TEST_F(CreateDiskTest, BootSectorOfWrongSizeOrEnd_IsRefused) {
  folder_.AddDiskIni("BootSector=boot.bin\r\n");
  EXPECT_THAT(Failure(), HasSubstr("boot.bin is missing"));
  for (const std::size_t size : {0U, 511U, 513U}) {
    folder_.Add("boot.bin", std::string(size, '\xAA'));
    EXPECT_THAT(Failure(), HasSubstr("boot.bin has " + std::to_string(size) + " bytes; a boot sector has exactly 512"));
  }
  folder_.Add("boot.bin", std::string(512, '\xAA'));
  EXPECT_THAT(Failure(), HasSubstr("does not end with 55 AA"));
  EXPECT_THAT(folder_.Names(), ElementsAre("files"));
}

TEST_F(CreateDiskTest, FolderInTheImagesPlace_IsNamed) {
  folder_.AddDiskIni("");
  std::filesystem::create_directories(folder_.Image() / "x");
  EXPECT_THAT(Failure(), HasSubstr("mine.img is no floppy image, and is not replaced. Move it away"));
  EXPECT_EQ(folder_.Names().size(), 2U);
}

TEST_F(CreateDiskTest, OlderImageOfEitherSize_IsReplaced) {
  folder_.AddDiskIni("");
  for (const DiskFormat& older : kDiskFormats) {
    WriteFile(folder_.Image(), std::string(older.ImageBytes(), 'o'));
    MakeSound(kDiskFormats[0]);
  }
}

TEST_F(CreateDiskTest, FileOfAnotherSizeInTheImagesPlace_IsNamedAndStays) {
  folder_.AddDiskIni("");
  WriteFile(folder_.Image(), "a program of the user");
  EXPECT_THAT(Failure(), HasSubstr("mine.img is no floppy image, and is not replaced"));
  EXPECT_EQ(ReadFile(folder_.Image()), "a program of the user");
}

struct Shipped {
  std::string profile;
  const DiskFormat* format;
  std::string image;
  std::string label;
  std::string files;  // on the disk besides the loader, README.TXT and the menu
  bool asks_for_card;
};

class ShippedProfile : public ::testing::TestWithParam<Shipped> {
 protected:
  void SetUp() override {
    if (!testing::HasShell()) GTEST_SKIP() << "no shell here";
  }

  // The names of files in a listing, without those of folders.
  static std::set<std::string> Sorted(const std::string& listing) {
    std::istringstream words(listing);
    std::set<std::string> names;
    for (std::string word; words >> word;) {
      if (word.back() != '/') names.insert(word);
    }
    return names;
  }
};

TEST_P(ShippedProfile, WithAndWithoutSelection_MakesASoundDisk) {
  const Shipped& shipped = GetParam();
  const testing::ProgramFolder folder;
  std::filesystem::copy(u8"" SHIPPED_DISKS, folder.Disks(), std::filesystem::copy_options::recursive);
  for (const bool selection : {false, true}) {
    std::string path;
    ASSERT_EQ(CreateDisk({shipped.format, shipped.profile, selection}, folder.Text(), path).failure, "");
    const std::string image = testing::ShellPath(folder.path() / shipped.image);
    EXPECT_EQ(std::filesystem::file_size(folder.path() / shipped.image), shipped.format->ImageBytes());
    EXPECT_EQ(folder.Run("fsck.fat -n " + image).exit_code, 0);
    EXPECT_THAT(folder.Run("mdir -i " + image + " ::").output, HasSubstr(shipped.label));
    std::string files = "::/BOOT/SCRIPTS/MAIN.CDS ::/LOADER.BIN ::/README.TXT" + shipped.files;
    if (selection && shipped.asks_for_card) files += " ::/BOOT/SCRIPTS/CARDS.CDS";
    EXPECT_EQ(Sorted(folder.Run("mdir -b -/ -i " + image + " ::").output), Sorted(files));
    EXPECT_EQ(folder.Run("mtype -i " + image + " ::README.TXT").output,
              ReadFile(folder.Disks() / shipped.profile / "readme.txt"));
  }
}

TEST_P(ShippedProfile, ItsTexts_HaveDosLineEnds) {
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::path(u8"" SHIPPED_DISKS) / GetParam().profile)) {
    // The licences are as Debian has them.
    if (std::string("readme.txt disk.ini main.cds cards.cds software.txt").find(entry.path().filename().string()) ==
        std::string::npos) {
      continue;
    }
    const std::string text = ReadFile(entry.path());
    const std::string lone = std::regex_replace(text, std::regex("\r\n"), "");
    EXPECT_EQ(lone.find('\n'), std::string::npos) << entry.path();
  }
}

const std::string kRescue =
    " ::/BOOT/MEMDISK ::/BOOT/GRUB.GZ ::/BOOT/MEMTEST.X64 ::/BOOT/MEMTEST.X32 ::/LICENCES/GPL-3.TXT";
const std::string kNetwork = " ::/BOOT/IPXE.KRN ::/LICENCES/IPXE.TXT";
const std::string kLicences = " ::/LICENCES/SOFTWARE.TXT ::/LICENCES/GPL-2.TXT";

INSTANTIATE_TEST_SUITE_P(
    All, ShippedProfile,
    ::testing::Values(Shipped{"vexasoftware", &kDiskFormats[0], "vexastart.img", "VEXASTART", kRescue + kLicences,
                              false},
                      Shipped{"vexasoftware_emm", &kDiskFormats[0], "vexaemm.img", "VEXAEMM", "", false},
                      Shipped{"winsetup", &kDiskFormats[0], "vexawin.img", "VEXAWIN", "", false},
                      Shipped{"linkwellplus288", &kDiskFormats[1], "vexalinkwell.img", "VEXALINK",
                              kRescue + kNetwork + kLicences, true},
                      Shipped{"netaccess", &kDiskFormats[1], "vexanet.img", "VEXANET", kNetwork + kLicences, true}),
    [](const auto& instance) { return instance.param.profile; });

}  // namespace
}  // namespace discwright::tools
