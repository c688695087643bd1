// Tests of the CD boot sector of Windows Setup: how it finds SETUPLDR.BIN and starts it.
#include <gmock/gmock.h>

#include "tests/boot/boot_fixture.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// Writes `count` other files, whose directory records have various lengths and need several sectors.
void AddFillers(const fs::path& folder, int count) {
  for (int number = 0; number < count; ++number) {
    WriteFile(folder / ("A" + std::to_string(number) + std::string(static_cast<std::size_t>(number % 37), 'X')), "");
  }
}

TEST_F(BootSector, FileInItsFolder_IsLoadedAndStarted) {
  WriteFile(tree / "I386/SETUPLDR.BIN", SetupLoader());
  Master();
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForScreen(kStarted));
  EXPECT_TRUE(emulator.WaitForSerial(kStarted));
}

TEST_F(BootSector, LowerCaseNames_AreFound) {
  WriteFile(tree / "i386/setupldr.bin", SetupLoader());
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSector, MixedCaseNames_AreFound) {
  WriteFile(tree / "i386/SetupLdr.Bin", SetupLoader());
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSector, NamesThatBeginOrEndAlike_AreNotTaken) {
  for (const char* name : {"I38/SETUPLDR.BIN", "I3860/SETUPLDR.BIN", "I386;2/SETUPLDR.BIN", "XI386/SETUPLDR.BIN",
                           "I386/SETUPLDR.BI", "I386/SETUPLDR.BIN;2", "I386/SETUPLDR.BIN2", "I386/SETUPLDR.BINS",
                           "I386/SETUPLDR.BIL", "I386/SETUPLDRXBIN", "SETUPLDR.BIN"}) {
    WriteFile(tree / name, SetupLoader());
  }
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN was not found on this CD"));
}

TEST_F(BootSector, FolderOfManySectors_LastRecordIsFound) {
  AddFillers(tree / "I386", 2000);
  WriteFile(tree / "I386/SETUPLDR.BIN", SetupLoader());
  Master();
  ASSERT_GT(Entry("I386").size, 2048U * 2 * 16) << "a folder of more than two reads";
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSector, RootOfManySectors_LastRecordIsFound) {
  AddFillers(tree, 800);
  WriteFile(tree / "i386/SETUPLDR.BIN", SetupLoader());
  Master();
  ASSERT_GT(Entry("").size, 2048U * 16) << "a root of more than one read";
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSector, ManyFilesWithoutTheSetupLoader_AreReportedAsSuch) {
  AddFillers(tree / "I386", 2000);
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN was not found on this CD"));
}

TEST_F(BootSector, MissingFile_IsReported) {
  WriteFile(tree / "I386/TXTSETUP.SIF", "");
  Master();
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForScreen("\nI386\\SETUPLDR.BIN was not found on this CD\n"));
  EXPECT_TRUE(emulator.WaitForScreen("\nPress a key to restart.\n"));
}

TEST_F(BootSector, MissingFolder_IsReported) {
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN was not found on this CD"));
}

TEST_F(BootSector, FileOfTheFoldersName_IsNotTheFolder) {
  WriteFile(tree / "I386", SetupLoader());
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN was not found on this CD"));
}

TEST_F(BootSector, FolderOfTheFilesName_IsNotTheFile) {
  WriteFile(tree / "I386/SETUPLDR.BIN/SETUPLDR.BIN", SetupLoader());
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN was not found on this CD"));
}

// Whether the machine is not restarted during three ticks of its clock, which ticks 18 times a second.
bool GoesOn(Emulator& emulator) {
  constexpr std::uint32_t kTicks = 0x46C;
  std::string tick = emulator.Memory(kTicks, 1);
  for (int ticks = 0; ticks < 3 && !emulator.HasEnded();) {
    const std::string now = emulator.Memory(kTicks, 1);
    if (now != tick) ++ticks;
    tick = now;
  }
  return !emulator.HasEnded();
}

TEST_F(BootSector, KeyAfterAMessage_RestartsTheMachine) {
  Master();
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForScreen("Press a key to restart."));
  EXPECT_TRUE(GoesOn(emulator));
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForEnd());
}

// Patches the name of the folder as the build does in the copies on the CD.
std::string Patched(std::string sector, const std::string& folder) {
  return sector.replace(sector.find("I386"), 4, folder);
}

TEST_F(BootSector, PatchedToAnotherFolder_StartsTheLoaderOfThatFolder) {
  StartWith(Patched(sector, "ERDC"));
  WriteFile(tree / "I386/SETUPLDR.BIN", "no program");
  WriteFile(tree / "erdc/setupldr.bin", Patched(SetupLoader(kUsualSize, "upper"), "ERDC"));
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(SetupLoaderLine("ERDC")));
}

TEST_F(BootSector, PatchedToAnotherFolder_NamesThatFolderWhenItIsMissing) {
  StartWith(Patched(sector, "OOBC"));
  WriteFile(tree / "I386/SETUPLDR.BIN", SetupLoader());
  Master();
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForScreen("OOBC\\SETUPLDR.BIN was not found on this CD"));
  EXPECT_THAT(emulator.Screen(), Not(HasSubstr("I386")));
}

// With level 1 the names on the CD are I386 and SETUPLDR.BIN;1.
TEST_F(BootSector, ImageOfGenisoimage_NamesWithVersionsAreFound) {
  WriteFile(tree / "i386/setupldr.bin", SetupLoader());
  MasterBy({"genisoimage"}, {"-iso-level", "1"});
  ASSERT_THAT(ReadFile(image), HasSubstr("SETUPLDR.BIN;1"));
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSector, ImageOfGenisoimageWithASecondTree_NamesAreFound) {
  WriteFile(tree / "i386/setupldr.bin", SetupLoader());
  MasterBy({"genisoimage"}, {"-iso-level", "4", "-joliet", "-rock"});
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSector, ImageOfXorriso_NamesWithVersionsAreFound) {
  WriteFile(tree / "i386/setupldr.bin", SetupLoader());
  MasterBy({"xorriso", "-as", "mkisofs"}, {"-iso-level", "4", "-joliet"});
  ASSERT_THAT(ReadFile(image), HasSubstr("SETUPLDR.BIN;1"));
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSector, WithAHardDisk_StartsFromTheCd) {
  WriteFile(tree / "I386/SETUPLDR.BIN", SetupLoader());
  Master();
  WriteFile(place / "disk.img", std::string(1 << 20, '\0'));
  EXPECT_TRUE(Emulator(Join(CdDrive(image), HardDisk(place / "disk.img"))).WaitForScreen(kStarted));
}

TEST_F(BootSector, StartedByAnotherLoader_At0000_7C00) {
  StartWith(Starter("at_0000_7c00", sector));
  WriteFile(tree / "I386/SETUPLDR.BIN", SetupLoader());
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSector, StartedByAnotherLoader_WaitsForAKeyAfterItsMessage) {
  StartWith(Starter("at_07c0_0000", sector));
  Master();
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForScreen("I386\\SETUPLDR.BIN was not found on this CD\nPress a key to restart.\n"));
  EXPECT_TRUE(GoesOn(emulator)) << "a key that was pressed before is no answer";
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForEnd());
}

TEST_F(BootSector, StartedByAnotherLoader_At07C0_0000) {
  StartWith(Starter("at_07c0_0000", sector));
  WriteFile(tree / "I386/SETUPLDR.BIN", SetupLoader());
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

}  // namespace
}  // namespace discwright::testing
