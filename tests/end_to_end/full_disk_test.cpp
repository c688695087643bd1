// Tests of full disks: that of the image, and that of the program folder with its workspace.
#include <memory>

#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/small_disk.h"

namespace discwright::testing {

namespace {

std::uintmax_t SizeOf(const fs::path& folder) {
  std::uintmax_t size = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) size += entry.file_size() + 4096;
  }
  return size;
}

class FullDisk : public BuildTest {
 protected:
  // A program folder on a disk with this much free space; null when mounting is not permitted.
  std::unique_ptr<ProgramCopy> ProgramOnDisk(const SmallDisk& disk, std::uintmax_t free_bytes) const {
    auto on_disk = std::make_unique<ProgramCopy>(place / "disk" / "program");
    disk.FillUpTo(free_bytes);
    return on_disk;
  }
  std::uintmax_t DiskSize() const { return SizeOf(program.folder()) + 32 * kMegabyte; }
};

}  // namespace

TEST_F(FullDisk, NoRoomForTheImage_IsReportedAndNothingIsLeft) {
  const SmallDisk disk(place / "disk", kMegabyte);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  image = place / "disk" / "rescue.iso";
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 1) << outcome.err;
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("Operation Aborted: Not enough free space to complete the ISO file !!!"));
  EXPECT_THAT(ReadFile(program / "mkisofs.log"), HasSubstr("No space left on device"));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FullDisk, NoRoomForTheImage_AnOlderOneStaysUntouched) {
  const SmallDisk disk(place / "disk", kMegabyte);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  image = place / "disk" / "rescue.iso";
  WriteFile(image, OlderImage());
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 1) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr("Not enough free space to complete the ISO file !!!"));
  EXPECT_TRUE(ReadFile(image) == OlderImage());
  EXPECT_THAT(PartsOf(image), IsEmpty());
}

TEST_F(FullDisk, NotAByteLeftForTheWorkspace_IsReportedAndNoImageIsMade) {
  const SmallDisk disk(place / "disk", DiskSize());
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  const auto on_disk = ProgramOnDisk(disk, 0);
  const Outcome outcome = on_disk->Build(Output(image));
  EXPECT_EQ(outcome.exit_code, 1) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr("No space left on device"));
  EXPECT_THAT(outcome.err, HasSubstr("vexacd and its mark could not be made: No space left on device."));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FullDisk, NoRoomForTheUtilitiesInTheWorkspace_IsReported) {
  const SmallDisk disk(place / "disk", DiskSize());
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  const auto on_disk = ProgramOnDisk(disk, 10 * kMegabyte);  // the boot disks take 6 MB
  WriteFile(place / "tools" / "large.bin", std::string(20 * kMegabyte, 'l'));
  const Outcome outcome = on_disk->Build(Join(Output(image), Utilities(place / "tools")));
  EXPECT_EQ(outcome.exit_code, 4) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr("warning: " + (place / "tools" / "large.bin").string() + ": "));
  EXPECT_THAT(outcome.err, HasSubstr("No space left on device"));
  EXPECT_FALSE(ReadWithBsdtar(image).contains("vexa/large.bin"));
}

TEST_F(FullDisk, RoomMadeAfterwards_NextBuildSucceeds) {
  const SmallDisk disk(place / "disk", DiskSize());
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  const auto on_disk = ProgramOnDisk(disk, 0);
  ASSERT_EQ(on_disk->Build(Output(image)).exit_code, 1);
  fs::remove(place / "disk" / "filler");
  const Outcome outcome = on_disk->Build(Output(image));
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
}

}  // namespace discwright::testing
