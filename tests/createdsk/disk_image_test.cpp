// Tests of filling disks: the place of every byte, the limits, and the parts of a base image that stay.
#include "tools/createdsk/disk_image.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/byte_order.h"
#include "tests/createdsk/disks.h"

namespace discwright::tools {
namespace {

using ::testing::AllOf;
using testing::DiskOf;
using testing::Files;
using testing::Fill;
using testing::Format144;
using testing::Format288;
using ::testing::HasSubstr;
using testing::Pattern;
using testing::ProfileOf;

constexpr std::size_t k144Space = 2847UL * 512;
constexpr std::size_t k288Space = 2863UL * 1024;

std::string Text(const Image& image, std::size_t offset, std::size_t length) {
  return {image.begin() + static_cast<std::ptrdiff_t>(offset),
          image.begin() + static_cast<std::ptrdiff_t>(offset + length)};
}

std::string FailureOf(const DiskFormat& format, const Files& files) {
  Image image = FormatDisk(format);
  return Fill(ProfileOf(files), files, image).failure;
}

// Makes a base image from `base_files` and returns it after `files` were added.
Image Extended(const Files& base_files, const Files& files) {
  Image image = DiskOf(Format144(), base_files);
  Profile profile = ProfileOf(files);
  profile.base = "base.img";
  profile.label.reset();
  EXPECT_EQ(Fill(profile, files, image).failure, "");
  return image;
}

TEST(DiskImage, WithTwoFiles_HasTheirBytesInTheFirstClusters) {
  const Image image = DiskOf(Format144(), {{"A.TXT", Pattern(513)}, {"B.TXT", "b"}});
  ASSERT_EQ(image.size(), 1'474'560U);
  EXPECT_EQ(Text(image, 512, 9), std::string("\xF0\xFF\xFF\x03\xF0\xFF\xFF\x0F\x00", 9));
  EXPECT_EQ(Text(image, 512, 4608), Text(image, 5120, 4608));
  EXPECT_EQ(Text(image, 9728, 11), "TESTDISK   ");
  EXPECT_EQ(image[9728 + 11], 0x08);
  EXPECT_EQ(Text(image, 9760, 11), "A       TXT");
  EXPECT_EQ(Text(image, 9792, 11), "B       TXT");
  EXPECT_EQ(image[9792 + 26], 4);
  EXPECT_EQ(Text(image, 16896, 1024), Pattern(513) + std::string(511, '\0'));
  EXPECT_EQ(Text(image, 16896 + 1024, 2), std::string("b\0", 2));
}

TEST(DiskImage, OfEqualFiles_HasEqualBytes) {
  const Files files = {{"DOS\\A", Pattern(2000)}, {"B", ""}};
  EXPECT_EQ(DiskOf(Format288(), files), DiskOf(Format288(), files));
}

TEST(DiskImage, OfOtherContent_HasAnotherSerialNumber) {
  const Image one = DiskOf(Format144(), {{"A", "one"}});
  const Image two = DiskOf(Format144(), {{"A", "two"}});
  EXPECT_NE(Text(one, 39, 4), Text(two, 39, 4));
}

TEST(DiskImage, FilledExactly_Fits) {
  EXPECT_EQ(FailureOf(Format144(), {{"A", Pattern(k144Space)}}), "");
  EXPECT_EQ(FailureOf(Format288(), {{"A", Pattern(k288Space)}}), "");
  EXPECT_EQ(FailureOf(Format288(), {{"D\\A", Pattern(k288Space - 1024)}}), "");
}

TEST(DiskImage, OfOneByteTooMany_NamesFileAndMissingByte) {
  EXPECT_THAT(FailureOf(Format144(), {{"A", Pattern(k144Space + 1)}}),
              AllOf(HasSubstr("A (A)"), HasSubstr(" 1 byte is missing")));
  EXPECT_THAT(FailureOf(Format288(), {{"A", Pattern(k288Space + 1)}}), HasSubstr(" 1 byte is missing"));
  EXPECT_THAT(FailureOf(Format288(), {{"D\\A", Pattern(k288Space - 1023)}}), HasSubstr("D\\A (D\\A)"));
}

TEST(DiskImage, WithASecondFileTooLarge_NamesItAndItsMissingBytes) {
  EXPECT_THAT(FailureOf(Format144(), {{"A", Pattern(k144Space - 600)}, {"B", Pattern(1500)}}),
              AllOf(HasSubstr("B (B)"), HasSubstr(" 988 bytes are missing.")));
}

TEST(DiskImage, WithFilesBehindTheOneThatIsTooLarge_CountsTheirBytes) {
  EXPECT_THAT(FailureOf(Format144(), {{"A", Pattern(k144Space - 600)}, {"B", Pattern(1500)}, {"C", "1"}, {"D", "23"}}),
              AllOf(HasSubstr("B (B)"), HasSubstr(" 988 bytes are missing, and 3 for the files behind it.")));
}

TEST(DiskImage, WithFileOfManyTerabytes_IsRefusedWithoutReadingIt) {
  const Profile profile = ProfileOf({{"A", ""}});
  const DiskRequest request{profile, {std::int64_t{1} << 62}, {}};
  Image image = FormatDisk(Format144());
  const auto read_content = [](const ProfileFile&, std::string&) { return Result::Failure("was read"); };
  EXPECT_THAT(FillDisk(request, read_content, image).failure, HasSubstr("4611686018425930240 bytes are missing"));
}

TEST(DiskImage, OnAFullBase_NamesTheFolderThatDoesNotFit) {
  const Files files = {{"D\\E", ""}};
  Image image = DiskOf(Format144(), {{"A", Pattern(k144Space)}});
  EXPECT_THAT(Fill(ProfileOf(files), files, image).failure,
              HasSubstr("The folder D does not fit on the disk: 512 bytes"));
}

Files EmptyFiles(int count, const std::string& folder = "") {
  Files files;
  for (int i = 0; i < count; ++i) files.emplace_back(folder + "F" + std::to_string(i), "");
  return files;
}

TEST(DiskImage, WithAFullRootFolder_TakesNoMoreFiles) {
  EXPECT_EQ(FailureOf(Format144(), EmptyFiles(223)), "");  // the label takes the last of the 224 entries
  EXPECT_THAT(FailureOf(Format144(), EmptyFiles(224)), AllOf(HasSubstr("224 entries"), HasSubstr("F223")));
  EXPECT_EQ(FailureOf(Format288(), EmptyFiles(239)), "");
  EXPECT_THAT(FailureOf(Format288(), EmptyFiles(240)), HasSubstr("240 entries"));
}

TEST(DiskImage, WithManyFilesInAFolder_GivesItMoreClusters) {
  Volume volume;
  ASSERT_TRUE(ReadVolume(DiskOf(Format144(), EmptyFiles(14, "D\\")), volume).ok());
  EXPECT_EQ(volume.root.folders.at(1)->chain.size(), 1U);
  ASSERT_TRUE(ReadVolume(DiskOf(Format144(), EmptyFiles(15, "D\\")), volume).ok());
  EXPECT_EQ(volume.root.folders.at(1)->chain.size(), 2U);
  ASSERT_TRUE(ReadVolume(DiskOf(Format144(), EmptyFiles(300, "D\\")), volume).ok());
  EXPECT_EQ(volume.root.folders.at(1)->chain.size(), 19U);
  EXPECT_EQ(volume.root.folders.at(1)->files.size(), 300U);
}

TEST(VolumePlan, WithAFolderOfTwoMegabytesOfEntries_TakesNoMoreFiles) {
  Volume volume;
  ASSERT_TRUE(ReadVolume(DiskOf(Format288(), {{"D\\A", ""}}), volume).ok());
  auto& records = volume.root.folders.at(1)->records;
  records.resize(65536, MakeRecord(*ToShortName("X"), 0));
  std::fill(records.begin(), records.end(), records.back());
  VolumePlan plan(volume);
  const Profile profile = ProfileOf({{"D\\B", ""}});
  EXPECT_THAT(plan.AddFile(profile.files[0], 0).failure, HasSubstr("The folder D is full"));
}

TEST(DiskImage, WithAFileAndAFolderOfOneName_IsRefused) {
  EXPECT_THAT(FailureOf(Format144(), {{"A", ""}, {"A\\B", ""}}), HasSubstr("A is a file on the disk"));
  EXPECT_THAT(FailureOf(Format144(), {{"A\\B", ""}, {"A", ""}}), HasSubstr("A is a folder on the disk"));
}

TEST(DiskImage, OfAFileThatChangesWhileRead_IsRefused) {
  const Profile profile = ProfileOf({{"A", ""}});
  const DiskRequest request{profile, {3}, {}};
  Image image = FormatDisk(Format144());
  const auto read_content = [](const ProfileFile&, std::string& content) {
    content = "four";
    return Result::Success();
  };
  EXPECT_THAT(FillDisk(request, read_content, image).failure, HasSubstr("A changed while it was read"));
}

TEST(DiskImage, WithBootSectorOfTheProfile_KeepsItsJumpAndCode) {
  const Profile profile = ProfileOf({});
  BootSector sector;
  sector.fill(0xCC);
  Image image = FormatDisk(Format288());
  ASSERT_TRUE(FillDisk({profile, {}, sector}, nullptr, image).ok());
  EXPECT_EQ(Text(image, 0, 3), "\xCC\xCC\xCC");
  EXPECT_EQ(Text(image, 62, 450), std::string(450, '\xCC'));
  EXPECT_EQ(Text(image, 3, 8), "DWRIGHT ");
  EXPECT_EQ(image[24], 36);
  EXPECT_EQ(Text(image, 43, 19), "TESTDISK   FAT12   ");
}

TEST(DiskImage, OnABase_KeepsBootSectorAndOtherFiles) {
  Image base = DiskOf(Format144(), {{"IO.SYS", Pattern(3000)}});
  Profile profile = ProfileOf({{"NEW", ""}});
  profile.base = "base.img";
  profile.label.reset();
  base[62] = 0xF4;  // stands for boot code of the base
  const std::string sector = Text(base, 0, 512);
  Image image = base;
  ASSERT_TRUE(Fill(profile, {{"NEW", "new"}}, image).ok());
  EXPECT_EQ(Text(image, 0, 512), sector);
  EXPECT_EQ(Text(image, 9728, 64), Text(base, 9728, 64));
  EXPECT_EQ(Text(image, 16896, 3072), Text(base, 16896, 3072));
  EXPECT_EQ(Text(image, 16896 + 3072, 3), "new");
}

TEST(DiskImage, OnABaseWithALabelOfTheProfile_ChangesTheLabelOnly) {
  const Image base = DiskOf(Format144(), {{"A", "a"}});
  Profile profile = ProfileOf({});
  profile.base = "base.img";
  ASSERT_TRUE(ToLabel("OTHER", *profile.label).ok());
  Image image = base;
  ASSERT_TRUE(Fill(profile, {}, image).ok());
  Image expected = base;
  std::copy_n("OTHER      ", 11, expected.begin() + 43);
  std::copy_n("OTHER      ", 11, expected.begin() + 9728);
  EXPECT_EQ(image, expected);
}

TEST(DiskImage, OnABaseOfAnOldSystem_LeavesTheCodeWhereTheLabelWouldBe) {
  Image image = DiskOf(Format144(), {});
  image[38] = 0xEB;
  const std::string sector = Text(image, 0, 512);
  Profile profile = ProfileOf({});
  profile.base = "base.img";
  ASSERT_TRUE(ToLabel("OTHER", *profile.label).ok());
  ASSERT_TRUE(Fill(profile, {}, image).ok());
  EXPECT_EQ(Text(image, 0, 512), sector);
  EXPECT_EQ(Text(image, 9728, 5), "OTHER");
}

TEST(DiskImage, OnABaseWithBootSectorOfTheProfile_KeepsTheLayoutOfTheBase) {
  Image image = DiskOf(Format144(), {});
  image[21] = 0xF0;
  image[24] = 21;  // a layout that differs from the format's
  Profile profile = ProfileOf({});
  profile.base = "base.img";
  profile.label.reset();
  BootSector sector;
  sector.fill(0xCC);
  ASSERT_TRUE(FillDisk({profile, {}, sector}, nullptr, image).ok());
  EXPECT_EQ(image[24], 21);
  EXPECT_EQ(image[62], 0xCC);
  EXPECT_EQ(Text(image, 43, 8), "TESTDISK");
}

TEST(DiskImage, OnABaseThatIsNoFloppy_NamesTheBase) {
  Image image(1'474'560);
  Profile profile = ProfileOf({});
  profile.base = "base.img";
  EXPECT_THAT(Fill(profile, {}, image).failure, HasSubstr("[Disk] Base base.img is not a FAT12 floppy"));
}

TEST(DiskImage, ReplacingAFileByALongerOne_BeginsWhereItDid) {
  const Image image = Extended({{"IO.SYS", Pattern(600)}, {"B", "b"}}, {{"IO.SYS", Pattern(1500)}});
  Volume volume;
  ASSERT_TRUE(ReadVolume(image, volume).ok());
  EXPECT_EQ(volume.root.files.at(1), (Chain{2, 3, 5}));
  EXPECT_EQ(Text(image, 16896, 1024) + Text(image, 16896 + 3 * 512, 476), Pattern(1500));
}

TEST(DiskImage, ReplacingAFileByAShorterOne_FreesClustersAndClearsTheRest) {
  const Image image = Extended({{"A", Pattern(1500)}}, {{"A", "a"}});
  Volume volume;
  ASSERT_TRUE(ReadVolume(image, volume).ok());
  EXPECT_EQ(volume.root.files.at(1), (Chain{2}));
  EXPECT_EQ(volume.fat.FreeClusters(), 2846U);
  EXPECT_EQ(Text(image, 16896, 512), "a" + std::string(511, '\0'));
}

TEST(DiskImage, ReplacingAFileByAnEmptyOne_LeavesItNoClusters) {
  const Image image = Extended({{"A", Pattern(1500)}}, {{"A", ""}});
  EXPECT_EQ(Text(image, 9760 + 26, 6), std::string(6, '\0'));
  Volume volume;
  ASSERT_TRUE(ReadVolume(image, volume).ok());
  EXPECT_EQ(volume.fat.FreeClusters(), 2847U);
}

TEST(DiskImage, ReplacingTheFileThatFillsTheDisk_CountsItsSpace) {
  const Image image = Extended({{"A", Pattern(k144Space)}}, {{"B", Pattern(512)}, {"A", Pattern(k144Space - 512)}});
  Volume volume;
  ASSERT_TRUE(ReadVolume(image, volume).ok());
  EXPECT_EQ(volume.fat.FreeClusters(), 0U);
  EXPECT_EQ(volume.root.files.at(2), (Chain{2848}));
}

TEST(DiskImage, ReplacingAHiddenSystemFile_KeepsItsAttributes) {
  Image image = DiskOf(Format144(), {{"IO.SYS", "old"}});
  image[9760 + 11] = 0x07;
  const Files files = {{"IO.SYS", "new"}};
  ASSERT_TRUE(Fill(ProfileOf(files), files, image).ok());
  EXPECT_EQ(image[9760 + 11], 0x27);
}

TEST(DiskImage, AddingToAFolderOfTheBase_UsesDeletedEntriesFirst) {
  Image image = DiskOf(Format144(), {{"D\\A", ""}, {"D\\B", ""}});
  const std::size_t folder = 16896;
  image[folder + 64] = 0xE5;
  const Files files = {{"D\\C", "c"}};
  ASSERT_TRUE(Fill(ProfileOf(files), files, image).ok());
  EXPECT_EQ(Text(image, folder + 64, 2), "C ");
  EXPECT_EQ(Text(image, folder + 96, 2), "B ");
  EXPECT_EQ(image[folder + 128], 0);
}

}  // namespace
}  // namespace discwright::tools
