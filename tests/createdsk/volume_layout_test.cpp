// Tests of reading a volume's layout from its boot sector.
#include "tools/createdsk/volume_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/createdsk/disks.h"

namespace discwright::tools {
namespace {

using ::testing::HasSubstr;

TEST(VolumeLayout, Of144_CountsItsParts) {
  VolumeLayout layout;
  ASSERT_TRUE(ReadLayout(FormatDisk(testing::Format144()), layout).ok());
  EXPECT_EQ(layout.FatOffset(0), 512U);
  EXPECT_EQ(layout.FatOffset(1), 5120U);
  EXPECT_EQ(layout.RootOffset(), 9728U);
  EXPECT_EQ(layout.FirstDataSector(), 33U);
  EXPECT_EQ(layout.ClusterCount(), 2847U);
  EXPECT_EQ(layout.ClusterOffset(2), 16896U);
}

TEST(VolumeLayout, Of288_CountsItsParts) {
  VolumeLayout layout;
  ASSERT_TRUE(ReadLayout(FormatDisk(testing::Format288()), layout).ok());
  EXPECT_EQ(layout.FirstDataSector(), 34U);
  EXPECT_EQ(layout.ClusterCount(), 2863U);
  EXPECT_EQ(layout.ClusterBytes(), 1024U);
  EXPECT_EQ(layout.ClusterOffset(2864) + 1024, 2'949'120U);
}

TEST(VolumeLayout, With32BitSectorCount_IsRead) {
  Image image = FormatDisk(testing::Format144());
  image[19] = image[20] = 0;
  image[32] = 0x40;
  image[33] = 0x0B;
  VolumeLayout layout;
  ASSERT_TRUE(ReadLayout(image, layout).ok());
  EXPECT_EQ(layout.total_sectors, 2880U);
}

struct WrongByte {
  std::size_t offset;
  std::uint8_t value;
  std::string named;
};

class WrongLayout : public ::testing::TestWithParam<WrongByte> {};

TEST_P(WrongLayout, FieldThatIsNotOfAFat12Floppy_IsNamed) {
  Image image = FormatDisk(testing::Format144());
  image[GetParam().offset] = GetParam().value;
  VolumeLayout layout;
  EXPECT_THAT(ReadLayout(image, layout).failure, HasSubstr(GetParam().named));
}

INSTANTIATE_TEST_SUITE_P(All, WrongLayout,
                         ::testing::Values(WrongByte{510, 0, "55 AA"}, WrongByte{12, 4, "BPB_BytsPerSec"},
                                           WrongByte{13, 0, "BPB_SecPerClus"}, WrongByte{13, 3, "BPB_SecPerClus"},
                                           WrongByte{14, 0, "BPB_RsvdSecCnt"}, WrongByte{15, 255, "room for files"},
                                           WrongByte{16, 0, "BPB_NumFATs"}, WrongByte{17, 0, "BPB_RootEntCnt"},
                                           WrongByte{21, 0xEF, "BPB_Media"}, WrongByte{19, 0x3F, "number of sectors"},
                                           WrongByte{20, 0xFF, "number of sectors"}, WrongByte{22, 0, "BPB_FATSz16"},
                                           WrongByte{22, 8, "FAT is too short"},
                                           WrongByte{18, 0xFF, "room for files"}));

TEST(VolumeLayout, WithTooManyClustersForFat12_IsRefused) {
  Image image = FormatDisk(testing::Format288());
  image[13] = 1;
  VolumeLayout layout;
  EXPECT_THAT(ReadLayout(image, layout).failure, HasSubstr("too many clusters"));
}

TEST(VolumeLayout, OfLessThanASector_IsRefused) {
  VolumeLayout layout;
  EXPECT_THAT(ReadLayout(Image(511), layout).failure, HasSubstr("55 AA"));
}

}  // namespace
}  // namespace discwright::tools
