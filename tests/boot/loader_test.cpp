// Tests of the loader that the CD starts with: how its first stage finds, loads and checks the rest.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/boot/boot_fixture.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;

// The CDs of these tests have no script, so the menu begins with a message.
const std::string kMessage = "this script is not on the CD: boot/scripts/main.cds";

class BootLoader : public BootTest {
 protected:
  BootLoader() {
    StartWith(loader);
    Master();
  }

  // Replaces the loader by a starter and the loader behind it, which no BIOS and no boot catalogue knows.
  void MasterWithStarter(const std::string& name) const {
    StartWith(Starter(name, loader));
    Master();
  }

  // The sector of the image where the loader begins.
  std::uint32_t SectorOfLoader() const {
    const std::size_t at = ReadFile(image).find(loader);
    EXPECT_NE(at, std::string::npos);
    EXPECT_EQ(at % kCdSector, 0U);
    return static_cast<std::uint32_t>(at / kCdSector);
  }

  // Changes the rest of the loader in the image. `change` gets its bytes.
  template <typename Change>
  void Damage(const Change& change) const {
    std::string bytes = ReadFile(image);
    const std::size_t at = (SectorOfLoader() + 1) * kCdSector;
    std::string rest = bytes.substr(at, rest_of_loader.size());
    change(rest);
    WriteFile(image, bytes.replace(at, rest.size(), rest));
  }

  std::string loader = ShippedFile("vexacd/boot/loader.bin");
  // What the first stage loads. The last sector of the file is the boot record for disks.
  std::string rest_of_loader = loader.substr(kCdSector, loader.size() - 2 * kCdSector);
};

TEST_F(BootLoader, Started_SaysThatTheScriptIsMissing) {
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kMessage));
}

TEST_F(BootLoader, MenuWithoutAScript_HasWhatNeedsNoFile) {
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForScreen(kMessage));
  emulator.SendKey("ret");
  ASSERT_TRUE(emulator.WaitForScreen("Restart"));
  EXPECT_THAT(emulator.Screen(), HasSubstr("First hard disk"));
  emulator.SendKey("r");
  EXPECT_TRUE(emulator.WaitForEnd());
  EXPECT_THAT(emulator.Events(), HasSubstr("guest-reset"));
}

// A disk whose motor does not run yet fails a few times.
TEST_F(BootLoader, HardDiskWhoseFirstReadsFail_IsStarted) {
  const fs::path disk = place / "disk";
  // A boot sector that writes "HD" to the top left of the screen.
  std::string sector("\xB8\x00\xB8\x8E\xC0\x26\x66\xC7\x06\x00\x00H\x07\x44\x07\xF4\xEB\xFD", 18);
  sector.resize(510, '\0');
  WriteFile(disk, sector + "\x55\xAA" + std::string(1 << 20, '\0'));
  Emulator emulator(
      Join(CdDrive(image), {"-drive", "if=ide,media=disk," + testing::FaultyImage(disk, place / "faults", 0, 3)}));
  ASSERT_TRUE(emulator.WaitForScreen(kMessage));
  emulator.SendKey("ret");
  ASSERT_TRUE(emulator.WaitForScreen("Restart"));
  emulator.SendKey("h");
  EXPECT_TRUE(emulator.WaitForScreen("HD"));
}

TEST_F(BootLoader, FilesThatCannotBeStarted_AreSaidAndTheMenuStays) {
  WriteFile(tree / "boot/memdisk", ShippedFile("vexacd/boot/memdisk"));
  WriteFile(tree / "empty", "");
  WriteFile(tree / "short", std::string(kCdSector - 1, 'x'));
  WriteFile(tree / "long", std::string(kCdSector + 1, 'x'));
  WriteFile(tree / "boot/scripts/main.cds",
            "Entry Floppy\nKey F\nFloppy empty\nEndEntry\nEntry Kernel\nKey K\nLinux long\nEndEntry\n"
            "Entry Initrd\nKey I\nLinux boot/memdisk\nInitrd empty\nEndEntry\n"
            "Entry Short\nKey S\nCdSector short\nEndEntry\nEntry Long\nKey L\nCdSector long\nEndEntry\n");
  Master();
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForScreen("Arrows: choose"));
  for (const auto& [key, message] : std::vector<std::pair<std::string, std::string>>{
           {"f", "empty: The file is empty."},
           {"k", "long: The file is no kernel of the Linux boot protocol."},
           {"s", "short: This is no boot sector for CDs: it must have 2,048 bytes."},
           {"i", "empty: The file is empty."},
           {"l", "long: This is no boot sector for CDs: it must have 2,048 bytes."}}) {
    emulator.SendKey(key);
    EXPECT_TRUE(emulator.WaitForScreen(message)) << key;
  }
}

TEST_F(BootLoader, File_IsWholeSectorsAndOnTheCdByteForByte) {
  EXPECT_EQ(loader.size() % kCdSector, 0U);
  EXPECT_LT(loader.size(), 65536U);
  EXPECT_GT(SectorOfLoader(), 17U);
}

// Programs that make CDs write a table from offset 8 to 63 into the loader if their user asks for it.
TEST_F(BootLoader, BootInformationTableInTheLoader_ChangesNothing) {
  std::string with_table = loader;
  with_table.replace(8, 56, 56, '\xFF');
  StartWith(with_table);
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kMessage));
}

TEST_F(BootLoader, AhciDrive_IsStartedFrom) { EXPECT_TRUE(Emulator(AhciCdDrive(image)).WaitForScreen(kMessage)); }

TEST_F(BootLoader, UsbDrive_IsStartedFrom) { EXPECT_TRUE(Emulator(UsbCdDrive(image)).WaitForScreen(kMessage)); }

TEST_F(BootLoader, HardDiskInTheMachine_ChangesNothing) {
  WriteFile(place / "disk", std::string(1 << 20, '\0'));
  for (const auto& drive : {CdDrive(image), AhciCdDrive(image), UsbCdDrive(image)}) {
    EXPECT_TRUE(Emulator(Join(drive, HardDisk(place / "disk"))).WaitForScreen(kMessage));
  }
}

TEST_F(BootLoader, EntryAtSegmentZero_Starts) {
  MasterWithStarter("at_0000_7c00");
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kMessage));
}

TEST_F(BootLoader, EntryAtSegment7C0_Starts) {
  MasterWithStarter("at_07c0_0000");
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kMessage));
}

TEST_F(BootLoader, FaultyBios_Starts) {
  MasterWithStarter("on_a_bad_bios");
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kMessage));
}

TEST_F(BootLoader, SmallMemory_IsReported) {
  MasterWithStarter("with_256_kb");
  EXPECT_TRUE(Emulator(CdDrive(image))
                  .WaitForScreen("The loader needs 512 KB of base memory, and this machine has less (code 4)."));
}

TEST_F(BootLoader, OtherDiscInTheDrive_IsReported) {
  MasterWithStarter("from_another_disc");
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(
      emulator.WaitForScreen("\nThe loader did not find the disc that it was started from (code 1).\nTry another "));
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForEnd());
}

TEST_F(BootLoader, FlippedBit_IsNoticed) {
  Damage([](std::string& rest) { rest[rest.size() / 2] ^= 1; });
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(
      emulator.WaitForScreen("\nThe loader on this disc is damaged (code 3).\nMake the image again, and write "));
  EXPECT_TRUE(emulator.WaitForScreen("\nPress a key to restart.\n"));
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForEnd());
}

TEST_F(BootLoader, FlippedBitInTheLastByte_IsNoticed) {
  Damage([](std::string& rest) { rest.back() ^= 1; });
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("The loader on this disc is damaged (code 3)."));
}

TEST_F(BootLoader, SectorsInAnotherOrder_AreNoticed) {
  Damage([](std::string& rest) { std::rotate(rest.begin(), rest.begin() + kCdSector, rest.end()); });
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("The loader on this disc is damaged (code 3)."));
}

TEST_F(BootLoader, TruncatedImage_IsReported) {
  fs::resize_file(image, (SectorOfLoader() + 2) * kCdSector);
  EXPECT_TRUE(Emulator(CdDrive(image))
                  .WaitForScreen("\nThe disc could not be read (code 2, BIOS error 0C).\nCheck that its image is "));
}

TEST_F(BootLoader, ErrorThatGoesAway_Starts) {
  EXPECT_TRUE(Emulator(FaultyCdDrive(SectorOfLoader() + 1, 3)).WaitForScreen(kMessage));
}

TEST_F(BootLoader, DriveThatReadsSingleSectorsOnly_Starts) {
  EXPECT_TRUE(Emulator(FaultyCdDrive(SectorOfLoader() + 1, 4)).WaitForScreen(kMessage));
}

TEST_F(BootLoader, PermanentReadError_IsReported) {
  EXPECT_TRUE(
      Emulator(FaultyCdDrive(SectorOfLoader() + 1, kAlways)).WaitForScreen("The disc could not be read (code 2, "));
}

TEST_F(BootLoader, Memory_IsUsedAsTheMapSays) {
  Emulator emulator(CdDrive(image));
  ASSERT_TRUE(emulator.WaitForScreen(kMessage));
  EXPECT_EQ(emulator.Memory(0x7C00, kCdSector), loader.substr(0, kCdSector)) << "stage 1";
  const auto untouched = [&](std::uint32_t from, std::uint32_t end) {
    return emulator.Memory(from, end - from).find_first_not_of('\0') == std::string::npos;
  };
  EXPECT_TRUE(untouched(0x1000, 0x6000)) << "the stack of real mode; the BIOS used the 4 KB above for its own";
  EXPECT_TRUE(untouched(0x8400 + static_cast<std::uint32_t>(rest_of_loader.size()), 0x20000)) << "behind the loader";
  EXPECT_TRUE(untouched(0x28000, 0x2F000)) << "the stack of protected mode needs at most 4 KB";
  EXPECT_TRUE(untouched(0x70000, 0x90000)) << "free memory";
  EXPECT_TRUE(untouched(0x100000, 0x200000)) << "memory above 1 MB";
}

}  // namespace
}  // namespace discwright::testing
