// Tests of reading the table of mounted file systems.
#include "host/posix/mounts.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> PointsOf(const std::string& table) {
  const testing::TempFolder folder;
  folder.Write("mounts", table);
  return OpticalMountPoints(folder.Native("mounts"));
}

TEST(OpticalMountPoints, OnlyOpticalFileSystems_AreTakenInTheTablesOrder) {
  EXPECT_THAT(PointsOf("/dev/sda1 / ext4 rw 0 0\n"
                       "/dev/sr1 /media/second udf ro 0 0\n"
                       "proc /proc proc rw 0 0\n"
                       "/dev/sr0 /media/first iso9660 ro,nosuid 0 0\n"),
              ElementsAre("/media/second", "/media/first"));
}

TEST(OpticalMountPoints, OctalEscapes_AreDecoded) {
  EXPECT_THAT(PointsOf("/dev/sr0 /media/a\\040b\\011c\\134d\\012e iso9660 ro 0 0\n"),
              ElementsAre("/media/a b\tc\\d\ne"));
}

TEST(OpticalMountPoints, BackslashWithoutThreeOctalDigits_StaysAsItIs) {
  EXPECT_THAT(PointsOf("/dev/sr0 /media/a\\09\\4 iso9660 ro 0 0\n"), ElementsAre("/media/a\\09\\4"));
}

TEST(OpticalMountPoints, PlaceMountedTwice_IsListedOnce) {
  EXPECT_THAT(PointsOf("/dev/sr0 /m iso9660 ro 0 0\n/dev/sr1 /m udf ro 0 0\n"), ElementsAre("/m"));
}

TEST(OpticalMountPoints, EmptyCutOrMissingTable_HasNone) {
  EXPECT_THAT(PointsOf(""), IsEmpty());
  EXPECT_THAT(PointsOf("\n/dev/sr0\n/dev/sr0 /m\n"), IsEmpty());
  EXPECT_THAT(OpticalMountPoints("/missing/mounts"), IsEmpty());
}

TEST(IsInMountTable, MountPointOfAnyFileSystem_IsFoundByItsWholePath) {
  const testing::TempFolder folder;
  folder.Write("mounts", "/dev/sda1 /a\\040b ext4 rw 0 0\n/dev/sda1 /a/deep ext4 rw 0 0\n");
  const std::string table = folder.Native("mounts");
  EXPECT_TRUE(IsInMountTable(table, "/a b"));
  EXPECT_TRUE(IsInMountTable(table, "/a/deep"));
  EXPECT_FALSE(IsInMountTable(table, "/a"));
  EXPECT_FALSE(IsInMountTable("/missing/mounts", "/a"));
}

}  // namespace
}  // namespace discwright::host
