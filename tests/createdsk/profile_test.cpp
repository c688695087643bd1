// Tests of reading disk.ini.
#include "tools/createdsk/profile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace discwright::tools {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::string kDisk = "[Disk]\r\nImage=a.img\r\nLabel=DISK\r\n";

std::vector<std::string> FilesOf(const std::string& text, bool selection) {
  Profile profile;
  const Result result = ParseProfile(text, selection, profile);
  std::vector<std::string> files;
  for (const ProfileFile& file : profile.files) files.push_back(file.DiskPath() + "=" + file.source);
  return result.ok() ? files : std::vector<std::string>{result.failure};
}

std::string FailureOf(const std::string& text) {
  Profile profile;
  return ParseProfile(text, true, profile).failure;
}

TEST(Profile, WithEveryKey_IsRead) {
  Profile profile;
  ASSERT_TRUE(ParseProfile("; mine\r\n[disk]\r\nIMAGE=a.img\r\nLabel=my disk\r\nBootSector=boot.bin\r\n"
                           "Base=sub\\floppy.img\r\n",
                           false, profile)
                  .ok());
  EXPECT_EQ(profile.image, "a.img");
  EXPECT_EQ(ToText(*profile.label), "MY DISK");
  EXPECT_EQ(profile.boot_sector, "boot.bin");
  EXPECT_EQ(profile.base, "sub\\floppy.img");
  EXPECT_TRUE(profile.files.empty());
}

TEST(Profile, FilesInFolders_KeepTheirOrderAndSources) {
  EXPECT_THAT(
      FilesOf(kDisk + "[Files]\r\nio.sys=io.sys\r\nDOS\\KEYB.COM=keyb.com\r\ndos/x/a.b=sub/\xC3\xA4.bin\r\n", false),
      ElementsAre("IO.SYS=io.sys", "DOS\\KEYB.COM=keyb.com", "DOS\\X\\A.B=sub/\xC3\xA4.bin"));
}

TEST(Profile, WithSelection_ReplacesTheSameNameAndAddsTheRest) {
  const std::string text = kDisk + "[Files]\r\nA=a\r\nB=b\r\n[Selection]\r\nC=c\r\na=other\r\n";
  EXPECT_THAT(FilesOf(text, true), ElementsAre("A=other", "B=b", "C=c"));
  EXPECT_THAT(FilesOf(text, false), ElementsAre("A=a", "B=b"));
}

TEST(Profile, WithAFolderOfTheUser_KeepsTheFilesWithoutItApart) {
  Profile profile;
  ASSERT_TRUE(ParseProfile(kDisk + "Own=my dos\r\n[Files]\r\nA=a\r\n[WithoutOwn]\r\nB=b\r\n", true, profile).ok());
  EXPECT_EQ(profile.own, "my dos");
  ASSERT_EQ(profile.files.size(), 1U);
  ASSERT_EQ(profile.files_without_own.size(), 1U);
  EXPECT_EQ(profile.files_without_own[0].source, "b");
}

TEST(Profile, WithBaseAndNoLabel_LeavesTheLabelToTheBase) {
  Profile profile;
  ASSERT_TRUE(ParseProfile("[Disk]\nImage=a.img\nBase=b.img\n", false, profile).ok());
  EXPECT_FALSE(profile.label);
}

struct WrongText {
  std::string text;
  std::string place;
  std::string cause;
};

class WrongProfile : public ::testing::TestWithParam<WrongText> {};

TEST_P(WrongProfile, WrongText_NamesPlaceAndCause) {
  EXPECT_THAT(FailureOf(GetParam().text), AllOf(HasSubstr(GetParam().place), HasSubstr(GetParam().cause)));
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongProfile,
    ::testing::Values(WrongText{"", "[Disk] Image", "missing"},
                      WrongText{"[Disk]\nLabel=X\n", "[Disk] Image", "missing"},
                      WrongText{"[Disk]\nImage=\nLabel=X\n", "[Disk] Image", "missing"},
                      WrongText{"[Disk]\nImage=..\\a.img\nLabel=X\n", "Image \"..\\a.img\"", "plain file name"},
                      WrongText{"[Disk]\nImage=/a.img\nLabel=X\n", "Image", "plain file name"},
                      WrongText{"[Disk]\nImage=C:a.img\nLabel=X\n", "Image", "plain file name"},
                      WrongText{"[Disk]\nImage=..\nLabel=X\n", "Image", "plain file name"},
                      WrongText{"[Disk]\nImage=mkisofs\nLabel=X\n", "Image \"mkisofs\"", "ends in .img"},
                      WrongText{"[Disk]\nImage=keyfile.txt\nLabel=X\n", "Image", "ends in .img"},
                      WrongText{"[Disk]\nImage=a.img.exe\nLabel=X\n", "Image", "ends in .img"},
                      WrongText{"[Disk]\nImage=.img\nLabel=X\n", "Image", "ends in .img"},
                      WrongText{"[Disk]\nImage=Con.img\nLabel=X\n", "Image", "plain file name"},
                      WrongText{"[Disk]\nImage=nul .IMG\nLabel=X\n", "Image", "plain file name"},
                      WrongText{"[Disk]\nImage=a.img\n", "[Disk] Label", "missing"},
                      WrongText{"[Disk]\nImage=a.img\nLabel=TWELVE_CHARS\n", "Label \"TWELVE_CHARS\"",
                                "longer than 11"},
                      WrongText{"[Disk]\nImage=a.img\nLabel=A.B\n", "Label", "cannot have"},
                      WrongText{kDisk + "Bootsecter=x\n", "Bootsecter", "not known"},
                      WrongText{kDisk + "BootSector=../x\n", "BootSector", "profile folder"},
                      WrongText{kDisk + "Base=/dev/zero\n", "Base", "profile folder"},
                      WrongText{kDisk + "Base=C:\\x\n", "Base", "profile folder"},
                      WrongText{kDisk + "Own=../dos\n", "Own", "profile folder"},
                      WrongText{kDisk + "Own=dos\nBase=a.img\n", "Base and Own", "remove one"},
                      WrongText{kDisk + "[WithoutOwn]\nA=a\nA=b\n", "[WithoutOwn] A", "twice"},
                      WrongText{kDisk + "Base=sub\\lpt1.img\n", "Base", "profile folder"},
                      WrongText{kDisk + "[Files]\nLONG NAME.TEXT=a\n", "[Files] LONG NAME.TEXT", "DOS name"},
                      WrongText{kDisk + "[Files]\nDOS\\\\A=a\n", "DOS\\\\A", "DOS name"},
                      WrongText{kDisk + "[Files]\n\\A=a\n", "\\A", "DOS name"},
                      WrongText{kDisk + "[Files]\nA\\=a\n", "A\\", "DOS name"},
                      WrongText{kDisk + "[Files]\n..\\A=a\n", "..\\A", "DOS name"},
                      WrongText{kDisk + "[Files]\n=a\n", "[Files]", "DOS name"},
                      WrongText{kDisk + "[Files]\nA=\n", "[Files] A", "profile folder"},
                      WrongText{kDisk + "[Files]\nA=..\\..\\secret\n", "[Files] A", "profile folder"},
                      WrongText{kDisk + "[Files]\nA=/etc/hosts\n", "[Files] A", "profile folder"},
                      WrongText{kDisk + "[Files]\nDOS\\A=a\ndos/a=b\n", "[Files] DOS\\A", "twice"},
                      WrongText{kDisk + "[Selection]\nA=a\nA=b\n", "[Selection] A", "twice"}));

TEST(BareName, NamesThatLeadElsewhere_AreNone) {
  for (const char* const name : {"", ".", "..", "a/b", "a\\b", "C:", "com1", "*", "a?", "a\n", "a\"", "<", ">", "|"}) {
    EXPECT_FALSE(IsBareName(name)) << name;
  }
  for (const char* const name : {"vexanet.img", "...", "my disk", "console.img", "\xC3\xA4"})
    EXPECT_TRUE(IsBareName(name)) << name;
}

}  // namespace
}  // namespace discwright::tools
