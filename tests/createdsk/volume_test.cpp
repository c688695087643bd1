// Tests of reading sound and damaged volumes.
#include "tools/createdsk/volume.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "tests/createdsk/disks.h"

namespace discwright::tools {
namespace {

using testing::DiskOf;
using testing::Format144;
using ::testing::HasSubstr;
using testing::Pattern;

constexpr std::size_t kFat = 512;
constexpr std::size_t kFatBytes = 4608;
constexpr std::size_t kRoot = 9728;
constexpr std::size_t kFirstCluster = 16896;
constexpr std::size_t kSub = kFirstCluster + 4UL * 512;  // cluster 6
constexpr std::size_t kRecord = kRecordBytes;
constexpr std::size_t kStart = 26;  // DIR_FstClusLO
constexpr std::size_t kSize = 28;   // DIR_FileSize

// A volume with three records in its root: 0 is the label, 1 is A.BIN in clusters 2 to 4, 2 is the folder SUB in
// cluster
// 6. SUB contains the empty file E and B.BIN in cluster 5.
Image SoundDisk() {
  return DiskOf(Format144(), {{"A.BIN", Pattern(1400)}, {"SUB\\E", ""}, {"SUB\\B.BIN", Pattern(9)}});
}

std::string FailureOf(const Image& image) {
  Volume volume;
  return ReadVolume(image, volume).failure;
}

void SetFat(Image& image, std::size_t cluster, Cluster value) {
  StoreFatEntry(std::span(image).subspan(kFat, kFatBytes), cluster, value);
  StoreFatEntry(std::span(image).subspan(kFat + kFatBytes, kFatBytes), cluster, value);
}

TEST(Volume, ThatIsSound_IsReadWithItsTree) {
  Volume volume;
  ASSERT_EQ(ReadVolume(SoundDisk(), volume).failure, "");
  EXPECT_EQ(volume.root.files.at(1), (Chain{2, 3, 4}));
  const Folder& sub = *volume.root.folders.at(2);
  EXPECT_EQ(sub.path, "SUB");
  EXPECT_EQ(sub.chain, (Chain{6}));
  EXPECT_EQ(sub.files.at(2), Chain{});
  EXPECT_EQ(sub.files.at(3), (Chain{5}));
  EXPECT_EQ(volume.fat.FreeClusters(), 2847U - 5U);
}

TEST(Volume, WithDifferentFatCopies_IsDamaged) {
  Image image = SoundDisk();
  image[kFat + kFatBytes + 20] = 1;
  EXPECT_THAT(FailureOf(image), HasSubstr("FAT copies differ"));
}

TEST(Volume, WithAnotherMediaByteInTheFat_IsNoFloppy) {
  Image image = SoundDisk();
  SetFat(image, 0, 0xFF9);
  EXPECT_THAT(FailureOf(image), HasSubstr("media byte"));
}

TEST(Volume, WithAFileChainThatLeavesTheDisk_NamesTheFile) {
  Image image = SoundDisk();
  SetFat(image, 3, 2900);
  EXPECT_THAT(FailureOf(image), HasSubstr("damaged at A.BIN: its cluster chain leaves"));
}

TEST(Volume, WithTwoFilesInOneCluster_NamesTheSecond) {
  Image image = SoundDisk();
  SetFat(image, 5, 3);
  EXPECT_THAT(FailureOf(image), HasSubstr("SUB\\B.BIN"));
}

TEST(Volume, WithAChainOfAnotherLengthThanTheFile_NamesTheFile) {
  Image shorter = SoundDisk();
  shorter[kRoot + kRecord + kSize + 1] = 2;  // 0x278 bytes, two clusters
  EXPECT_THAT(FailureOf(shorter), HasSubstr("damaged at A.BIN: its cluster chain does not have the length"));
  Image longer = SoundDisk();
  longer[kRoot + kRecord + kSize + 3] = 0xFF;
  EXPECT_THAT(FailureOf(longer), HasSubstr("A.BIN"));
}

TEST(Volume, WithAnEmptyFileThatHasClusters_NamesTheFile) {
  Image image = SoundDisk();
  image[kRoot + kRecord + kSize] = image[kRoot + kRecord + kSize + 1] = 0;
  EXPECT_THAT(FailureOf(image), HasSubstr("A.BIN"));
}

TEST(Volume, WithAFileWithoutClusters_NamesTheFile) {
  Image image = SoundDisk();
  image[kRoot + kRecord + kStart] = 0;
  EXPECT_THAT(FailureOf(image), HasSubstr("A.BIN"));
}

TEST(Volume, WithAFolderThatIsItsOwnChild_IsDamaged) {
  Image image = SoundDisk();
  const std::size_t entry = kSub + 3 * kRecord;  // B.BIN
  image[entry + 11] = kFolderAttribute;
  image[entry + kStart] = 6;
  EXPECT_THAT(FailureOf(image), HasSubstr("SUB\\B.BIN"));
}

TEST(Volume, WithAFolderThatDoesNotNameItself_IsDamaged) {
  for (const std::size_t offset :
       {std::size_t{0}, std::size_t{11}, kStart, kRecord + 1, kRecord + 11, kRecord + kStart}) {
    Image image = SoundDisk();
    image[kSub + offset] ^= 0x10;
    EXPECT_THAT(FailureOf(image), HasSubstr("SUB: it does not begin with itself")) << offset;
  }
}

TEST(Volume, WithAFolderWithoutClusters_IsDamaged) {
  Image image = SoundDisk();
  image[kRoot + 2 * kRecord + kStart] = 0;
  EXPECT_THAT(FailureOf(image), HasSubstr("damaged at SUB:"));
}

TEST(Volume, WithRubbishBehindTheEndOfAFolder_ReadsItAsZero) {
  Image image = SoundDisk();
  image[kRoot + 4 * kRecord] = 'X';  // after record 3, which ends the folder
  Volume volume;
  ASSERT_TRUE(ReadVolume(image, volume).ok());
  EXPECT_EQ(KindOf(volume.root.records[4]), RecordKind::kEnd);
}

TEST(Volume, WithDeletedAndLongNames_PassesOverThem) {
  Image image = SoundDisk();
  image[kRoot + kRecord] = 0xE5;
  image[kRoot + 11] = 0x0F;  // the label becomes a part of a long name
  Volume volume;
  ASSERT_TRUE(ReadVolume(image, volume).ok());
  EXPECT_TRUE(volume.root.files.empty());
  EXPECT_EQ(volume.root.folders.size(), 1U);
}

std::string NestedFolders(int depth) {
  std::string path;
  for (int i = 0; i < depth; ++i) path += "D\\";
  return path + "F";
}

TEST(Volume, With32NestedFolders_IsRead) { EXPECT_EQ(FailureOf(DiskOf(Format144(), {{NestedFolders(32), "x"}})), ""); }

TEST(Volume, With33NestedFolders_LiesTooDeep) {
  EXPECT_THAT(FailureOf(DiskOf(Format144(), {{NestedFolders(33), "x"}})), HasSubstr("too deep"));
}

// Changes a few bytes anywhere in the image. Both copies of the FAT get the same change, because a difference between
// them would be refused before anything else is read.
void Damage(Image& image, std::mt19937& random) {
  for (std::uint32_t count = random() % 4 + 1; count > 0; --count) {
    const bool in_start = random() % 2 == 0;  // half of the changes hit the boot sector and the first FAT entries
    const std::size_t offset = random() % (in_start ? kFat + 100 : image.size());
    const auto value = static_cast<std::uint8_t>(random());
    image[offset] = value;
    if (offset >= kFat && offset < kFat + kFatBytes) image[offset + kFatBytes] = value;
  }
}

TEST(Volume, DamagedInTwoThousandWays_IsRefusedOrStillFilled) {
  constexpr DiskFormat kSmall = {"", 90, 1, 32, 18};  // small, so that most bytes belong to a structure
  testing::Files files = {{"A.BIN", Pattern(5000)}, {"SUB\\DEEP\\B.BIN", Pattern(600)}, {"SUB\\C", ""}};
  for (int i = 0; i < 24; ++i) files.emplace_back("SUB\\F" + std::to_string(i), "x");
  const Image sound = DiskOf(kSmall, files);
  const testing::Files added = {{"A.BIN", Pattern(700)}, {"NEW\\N.BIN", Pattern(3000)}, {"SUB\\DEEP\\M", "m"}};
  Profile profile = testing::ProfileOf(added);
  profile.base = "base.img";

  std::mt19937 random(20000101);  // a fixed seed: every run makes the same changes
  int filled = 0;
  for (int round = 0; round < 2000; ++round) {
    Image image = sound;
    Damage(image, random);
    if (!testing::Fill(profile, added, image).ok()) continue;
    ++filled;
    EXPECT_EQ(FailureOf(image), "") << round;
  }
  EXPECT_GT(filled, 200);
  EXPECT_LT(filled, 1800);
}

}  // namespace
}  // namespace discwright::tools
