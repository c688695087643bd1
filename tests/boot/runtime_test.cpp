// Tests of the loader's runtime on the emulated PC: runtime_probe.cpp shows what it does.
#include <gmock/gmock.h>

#include <numeric>
#include <sstream>

#include "tests/boot/boot_fixture.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class BootRuntime : public BootTest {
 protected:
  BootRuntime() {
    WriteFile(tree / "filler", std::string(100 * 2048, 'x'));
    StartWith(probe);
    Master();
  }

  void MasterWithStarter(const std::string& name) const {
    StartWith(Starter(name, probe));
    Master();
  }

  // What the probe shows about sectors 16 to 55 when it has read them right.
  std::string Sectors() const {
    const std::string bytes = ReadFile(image).substr(16 * 2048, 40 * 2048);
    const std::uint32_t sum = std::accumulate(bytes.begin(), bytes.end(), 0U, [](std::uint32_t value, char byte) {
      return value + static_cast<std::uint8_t>(byte);
    });
    std::ostringstream shown;
    shown << std::hex << std::uppercase << "sectors 1 " << sum << "\none by one " << sum << "\n";
    return shown.str();
  }

  std::string probe = ReadFile(RUNTIME_PROBE);
};

TEST_F(BootRuntime, Sectors_AreReadInPiecesAndOneByOne) {
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForSerial("drive E0 0\n"));
  EXPECT_TRUE(emulator.WaitForSerial(Sectors()));
}

TEST_F(BootRuntime, SectorsBehindTheEnd_AreAFailure) {
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForSerial("behind the end 0 C\nat the last number 0\n"));
}

TEST_F(BootRuntime, DiskWithSmallSectors_IsRead) {
  MasterWithStarter("with_drive_80");
  fs::copy_file(image, place / "disk");
  Emulator emulator(Join(CdDrive(image), HardDisk(place / "disk")));
  EXPECT_TRUE(emulator.WaitForSerial("drive 80 2\n"));
  EXPECT_TRUE(emulator.WaitForSerial(Sectors()));
}

TEST_F(BootRuntime, DriveNumberThatIsWrong_IsNotTaken) {
  MasterWithStarter("with_drive_85");
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForSerial("drive E0 0\n"));
}

TEST_F(BootRuntime, DriveNumberThatIsAnotherDisk_IsNotTaken) {
  MasterWithStarter("with_drive_80");
  WriteFile(place / "disk", std::string(1 << 20, '\0'));
  EXPECT_TRUE(Emulator(Join(CdDrive(image), HardDisk(place / "disk"))).WaitForSerial("drive E0 0\n"));
}

TEST_F(BootRuntime, DriveNumberWithoutItsHighestBit_IsCompleted) {
  MasterWithStarter("with_drive_60");
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForSerial("drive E0 0\n"));
}

TEST_F(BootRuntime, FaultyBios_SectorsAreReadAndKeysWork) {
  MasterWithStarter("on_a_bad_bios");
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForSerial("drive 9F 0\n"));
  EXPECT_TRUE(emulator.WaitForSerial(Sectors()));
  ASSERT_TRUE(emulator.WaitForSerial("ready\n"));
  EXPECT_THAT(emulator.Serial(), HasSubstr("key within 3 ticks 0\n")) << "the starter's key was pressed before";
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForSerial("key 61 1E\n"));
}

TEST_F(BootRuntime, DriveThatReadsSingleSectorsOnly_IsRead) {
  // The first 4 reads of 16 sectors fail. Stage 1 does not read the filler.
  EXPECT_TRUE(Emulator(FaultyCdDrive(Entry("filler").extent, 4)).WaitForSerial(Sectors()));
}

TEST_F(BootRuntime, PermanentReadError_IsAFailure) {
  Emulator emulator(FaultyCdDrive(Entry("filler").extent, kAlways));
  EXPECT_TRUE(emulator.WaitForSerial("sectors 0 "));
}

TEST_F(BootRuntime, MemoryMap_IsThatOfTheMachine) {
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForSerial("sectors"));
  EXPECT_THAT(emulator.Serial(), HasSubstr("memory 0 9FC00 1\n"));
  EXPECT_THAT(emulator.Serial(), HasSubstr("memory 100000 3EE0000 1\n")) << "64 MB";
  EXPECT_THAT(emulator.Serial(), HasSubstr("memory F0000 10000 2\n")) << "the BIOS, which only function E820h tells";
}

TEST_F(BootRuntime, A20_IsSwitchedOn) {
  MasterWithStarter("without_a20");
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForSerial("ready\n"));
  EXPECT_TRUE(emulator.WaitForMonitor("info registers", "A20=1"));
  EXPECT_THAT(emulator.Screen(), Not(HasSubstr("code 5")));
}

TEST_F(BootRuntime, Screen_ScrollsAndClipsAtItsEdges) {
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForSerial("ready\n"));
  std::string expected;
  for (char line = 'C'; line <= 'Z'; ++line) {
    expected += std::string("line ") + line + (line == 'F' ? std::string(69, ' ') + "12345\n" : "\n");
  }
  EXPECT_EQ(emulator.Screen(), expected + "last line\n");
  EXPECT_THAT(emulator.Memory(0xB8000 + 80 * 25 * 2, 10), Not(HasSubstr("b"))) << "below the screen";
  const std::string cursor = emulator.Memory(0x450, 2);  // column and line, as the BIOS knows them
  EXPECT_EQ(cursor, (std::string{9, 24}));
}

TEST_F(BootRuntime, Interrupts_AreOffBetweenCalls) {
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForSerial("interrupts 0\n"));
}

TEST_F(BootRuntime, Keys_AreWaitedFor) {
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForSerial("key within 3 ticks 0\n"));
  ASSERT_TRUE(emulator.WaitForSerial("ready\n"));
  emulator.SendKey("down");
  EXPECT_TRUE(emulator.WaitForSerial("key 0 50\n"));
}

TEST_F(BootRuntime, Restart_RestartsTheMachine) {
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForSerial("ready\n"));
  emulator.SendKey("r");
  EXPECT_TRUE(emulator.WaitForEnd());
  EXPECT_THAT(emulator.Events(), HasSubstr("guest-reset"));
}

TEST_F(BootRuntime, PowerOff_SwitchesTheMachineOff) {
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForSerial("ready\n"));
  emulator.SendKey("o");
  EXPECT_TRUE(emulator.WaitForEnd());
  EXPECT_THAT(emulator.Events(), HasSubstr("guest-shutdown"));
}

TEST_F(BootRuntime, NextDevice_IsStarted) {
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForSerial("ready\n"));
  emulator.SendKey("n");
  EXPECT_TRUE(emulator.WaitForScreen("Booting from "));
}

// After the starter, stage 1 has to search for itself. It reads 16 sectors at a time, so the program must end within
// the first of these pieces.
TEST_F(BootRuntime, UnreadableSectorBehindTheProgram_IsPassedInTheSearch) {
  MasterWithStarter("at_0000_7c00");
  const std::size_t at = ReadFile(image).find(probe);
  const auto behind = static_cast<std::uint32_t>((at + probe.size()) / kCdSector);
  ASSERT_LT(behind, 18U + 16U);
  EXPECT_TRUE(Emulator(FaultyCdDrive(behind, kAlways)).WaitForSerial("drive"));
}

}  // namespace
}  // namespace discwright::testing
