// Tests of the image as a USB stick or a hard disk: its boot record, how the loader finds itself on disks, and the
// numbers that the disks have for a system that the menu starts.
#include <gmock/gmock.h>

#include "tests/boot/boot_fixture.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string kStickTitle = "The menu of the stick";

class BootRecord : public BootTest {
 protected:
  BootRecord() {
    StartWith(loader);
    WriteScript(kStickTitle);
    WriteFile(tree / "room", std::string(1 << 20, 'x'));  // SeaBIOS reads no USB stick of less than half a megabyte
    Master();
  }

  void WriteScript(const std::string& title) const {
    WriteFile(tree / "boot/scripts/main.cds",
              "Set Title=" + title +
                  "\nEntry First\nKey A\nHardDisk 1\nEndEntry\nEntry Second\nKey B\nHardDisk 2\nEndEntry\n"
                  "Entry Overview\nKey O\nOverview\nEndEntry\n");
  }

  // A hard disk with the boot sector disk_<name>.bin.
  fs::path Disk(const std::string& name) const {
    const std::string sector = ReadFile(fs::path(BOOT_STARTERS) / ("disk_" + name + ".bin"));
    WriteFile(place / name, sector + std::string(4000256, '\0'));
    return place / name;
  }

  // What the system on a disk shows (disk_system.asm). `drive` is the number that it was started with.
  static std::string SystemLine(const std::string& name, const std::string& drive) {
    return "DISK " + name + " drive=" + drive + " read=1 extended=1 dl=" + drive + " if=1 error=1 ";
  }

  // A stick whose reads of the loader's first sector fail.
  std::vector<std::string> FaultyStick(int count) const {
    constexpr std::uint32_t kSectorOfLoader = 21;
    return {"-drive",  "if=none,id=stick,media=disk," + FaultyImage(kSectorOfLoader, count),
            "-device", "qemu-xhci",
            "-device", "usb-storage,drive=stick,bootindex=0"};
  }

  // The last sector of the loader's file, which holds the record.
  std::string RecordSector() const { return loader.substr(loader.size() - kCdSector); }

  std::string loader = ShippedFile("vexacd/boot/loader.bin");
};

TEST_F(BootRecord, UsbStickAndIdeDisk_ShowTheMenu) {
  for (const auto& drive : {UsbStick(image), IdeDisks({image})}) {
    Emulator emulator(drive);
    EXPECT_TRUE(emulator.WaitForScreen(kEntriesShown));
    EXPECT_THAT(emulator.Screen(), HasSubstr(kStickTitle));
  }
}

TEST_F(BootRecord, BiosWithoutExtensions_IsReported) {
  for (const char* bios : {"on_an_old_bios_1", "on_an_old_bios_2", "on_an_old_bios_3"}) {
    StartWith(Starter(bios, RecordSector()));
    Master();
    Emulator emulator(CdDrive(image));
    EXPECT_TRUE(
        emulator.WaitForScreen("\nThe BIOS cannot read this disk (code 6).\nWrite the image again, or to a CD."));
    emulator.SendKey("a");
    EXPECT_TRUE(emulator.WaitForEnd());
    EXPECT_THAT(emulator.Events(), HasSubstr("guest-reset"));
  }
}

TEST_F(BootRecord, BiosThatReadsTooLittleAndReportsSuccess_IsReported) {
  StartWith(Starter("on_an_old_bios_4", RecordSector()));
  Master();
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("\nThe disk cannot be read (code 7, BIOS error FF).\n"));
}

// On this CD the record reads sector 0, because mkisofs has not filled in a sector.
TEST_F(BootRecord, BothWaysInWhichABiosEnters_Work) {
  for (const char* way : {"at_0000_7c00", "at_07c0_0000"}) {
    StartWith(Starter(way, RecordSector()));
    Master();
    EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("\nThe image is damaged (code 8).\n")) << way;
  }
}

TEST_F(BootRecord, ErrorThatGoesAway_Starts) { EXPECT_TRUE(Emulator(FaultyStick(3)).WaitForScreen(kEntriesShown)); }

TEST_F(BootRecord, PermanentReadError_IsReported) {
  Emulator emulator(FaultyStick(kAlways));
  EXPECT_TRUE(emulator.WaitForScreen("\nThe disk cannot be read (code 7, BIOS error "));
  EXPECT_TRUE(emulator.WaitForScreen("Press a key to restart."));
  EXPECT_THAT(emulator.Screen(), Not(HasSubstr("error 00")));
}

TEST_F(BootRecord, ImageWithoutItsLoader_IsReported) {
  for (const char* part : {"DWLO", "ADER"}) {
    std::string bytes = ReadFile(image);
    bytes.replace(bytes.find("DWLOADER") + (*part == 'A' ? 4 : 0), 4, "----");
    WriteFile(place / "damaged", bytes);
    EXPECT_TRUE(Emulator(UsbStick(place / "damaged")).WaitForScreen("\nThe image is damaged (code 8).\n")) << part;
  }
}

TEST_F(BootRecord, SeveralDisksWithSuchImages_ShowTheMenuOfTheStartedOne) {
  fs::copy_file(image, place / "started");
  WriteScript("Another menu");
  Master();
  for (const auto& drives :
       {IdeDisks({place / "started", image}), IdeDisks({Disk("starts_82"), image, place / "started"}),
        IdeDisks({Disk("starts_81"), place / "started", image})}) {
    Emulator emulator(drives);
    EXPECT_TRUE(emulator.WaitForScreen(kEntriesShown));
    EXPECT_THAT(emulator.Screen(), HasSubstr(kStickTitle));
  }
}

TEST_F(BootRecord, StickAsFirstDisk_StartsTheOthersAsIfItWereNotThere) {
  const auto drives = IdeDisks({image, Disk("first"), Disk("second")});
  for (const auto& [key, line] :
       {std::pair("a", SystemLine("first", "80")), std::pair("b", SystemLine("second", "81"))}) {
    Emulator emulator(drives);
    ASSERT_TRUE(emulator.WaitForScreen(kEntriesShown));
    emulator.SendKey(key);
    EXPECT_TRUE(emulator.WaitForScreen(line));
    EXPECT_TRUE(emulator.WaitForScreen("disks=03 size=17A0\nmemory=027E other="));
  }
}

TEST_F(BootRecord, StickBeforeAnotherDisk_IsTheSecondOneForItsSystem) {
  Emulator emulator(Join(UsbStick(image), HardDisk(Disk("first"))));
  ASSERT_TRUE(emulator.WaitForScreen(kEntriesShown));
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForScreen(SystemLine("first", "80") + "disks=02 size=17A0\nmemory=027E other=CD001\n"));
}

TEST_F(BootRecord, StickBetweenOtherDisks_ComesLast) {
  const auto drives = IdeDisks({Disk("starts_81"), image, Disk("second")});
  for (const auto& [key, line] :
       {std::pair("a", SystemLine("chain", "80")), std::pair("b", SystemLine("second", "81"))}) {
    Emulator emulator(drives);
    ASSERT_TRUE(emulator.WaitForScreen(kEntriesShown));
    emulator.SendKey(key);
    EXPECT_TRUE(emulator.WaitForScreen(line));
  }
}

TEST_F(BootRecord, StickBehindAllDisks_ChangesNothing) {
  Emulator emulator(IdeDisks({Disk("starts_81"), image}));
  ASSERT_TRUE(emulator.WaitForScreen(kEntriesShown));
  emulator.SendKey("b");
  EXPECT_TRUE(emulator.WaitForScreen("The computer has no such hard disk"));
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForScreen(SystemLine("chain", "80") + "disks=02 size=17A0\nmemory=027F other=CD001\n"));
}

TEST_F(BootRecord, StickAlone_IsNoHardDiskForItsMenu) {
  Emulator emulator(UsbStick(image));
  ASSERT_TRUE(emulator.WaitForScreen(kEntriesShown));
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForScreen("The computer has no such hard disk"));
  emulator.SendKey("o");
  ASSERT_TRUE(emulator.WaitForScreen("Hard disks that the BIOS knows: 1"));
  emulator.SendKey("ret");  // leaves the overview; the message of the first entry does not come back
  ASSERT_TRUE(emulator.WaitForScreen(kEntriesShown));
  EXPECT_THAT(emulator.Screen(), Not(HasSubstr("no such hard disk")));
  emulator.SendKey("b");
  EXPECT_TRUE(emulator.WaitForScreen("The computer has no such hard disk"));
}

TEST_F(BootRecord, SameImageInACdDrive_ChangesNothingForTheSystem) {
  Emulator emulator(Join(CdDrive(image), HardDisk(Disk("first"))));
  ASSERT_TRUE(emulator.WaitForScreen(kEntriesShown));
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForScreen(SystemLine("first", "80") + "disks=01 size=17A0\nmemory=027F other=?\n"));
}

}  // namespace
}  // namespace discwright::testing
