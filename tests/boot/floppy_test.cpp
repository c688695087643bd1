// Tests of the boot sector and the loader of floppies in an emulated PC.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/boot/boot_fixture.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::size_t kFloppySector = 512;

class FloppyBoot : public BootTest {
 protected:
  FloppyBoot() {
    WriteFile(place / "disk", SectorThatShows("HD") + std::string(1 << 20, '\0'));
    WriteFile(place / "small.img", SectorThatShows("SMALL") + std::string(360 * 1024 - 512, '\0'));
    Script("");
  }

  void Script(const std::string& more) const {
    WriteFile(place / "main.cds",
              "Set Title=My floppy\r\nEntry First hard disk\r\n  Key H\r\n  HardDisk 1\r\nEndEntry\r\n" + more);
  }
  void Run(const std::string& line) const {
    const Outcome outcome = RunProgram({"sh", "-ec", line}, {.working_folder = place.path()});
    ASSERT_EQ(outcome.exit_code, 0) << line << "\n" << outcome.err;
  }

  // Makes a floppy with mkfs.fat; `options` end with its size in KB.
  void Format(const std::string& options) const { Run("rm -f f.img; mkfs.fat -C f.img -F 12 " + options); }
  void PutLoader() const {
    WriteFile(place / "loader", loader);
    Run("mcopy -o -i f.img loader ::LOADER.BIN");
  }
  void PutFiles() const { Run("mmd -i f.img ::BOOT ::BOOT/SCRIPTS; mcopy -i f.img main.cds ::BOOT/SCRIPTS/MAIN.CDS"); }
  void PutSmallImage() const {
    WriteFile(place / "memdisk", ShippedFile("vexacd/boot/memdisk"));
    Run("mcopy -i f.img small.img ::SMALL.IMG; mcopy -i f.img memdisk ::BOOT/MEMDISK");
  }
  // Writes a boot sector to a sector of the floppy, and leaves the place of the parameter block unchanged.
  void PutSector(const std::string& sector, std::size_t number = 0) const {
    std::string bytes = ReadFile(floppy);
    const std::string block = bytes.substr(3, 59);
    bytes.replace(number * kFloppySector, kFloppySector, sector);
    bytes.replace(number * kFloppySector + 3, block.size(), block);
    WriteFile(floppy, bytes);
  }
  void Make(const std::string& options = "1440") const {
    Format(options);
    PutLoader();
    PutFiles();
    PutSector(boot_sector);
  }
  void MakeWithCreateDsk(const std::string& format) const {
    fs::copy_file(CREATEDSK_PROGRAM, place / "CreateDsk", fs::copy_options::overwrite_existing);
    const fs::path profile = place / "files/disks/mine";
    WriteFile(profile / "disk.ini",
              "[Disk]\r\nImage=f.img\r\nLabel=MINE\r\nBootSector=sector\r\n[Files]\r\nLOADER.BIN=loader\r\n"
              "BOOT/SCRIPTS/MAIN.CDS=main.cds\r\n");
    WriteFile(profile / "sector", boot_sector);
    WriteFile(profile / "loader", loader);
    fs::copy_file(place / "main.cds", profile / "main.cds", fs::copy_options::overwrite_existing);
    Run("./CreateDsk -t " + format + " mine");
  }

  // The first sector of the floppy that has these bytes at its start.
  std::uint32_t SectorOf(const std::string& bytes) const {
    const std::size_t at = ReadFile(floppy).find(bytes);
    EXPECT_NE(at, std::string::npos);
    EXPECT_EQ(at % kFloppySector, 0U);
    return static_cast<std::uint32_t>(at / kFloppySector);
  }
  std::uint32_t SectorOfLoader() const { return SectorOf(loader.substr(0, kFloppySector)); }
  void Damage(std::size_t at) const {
    std::string bytes = ReadFile(floppy);
    bytes[at] ^= 1;
    WriteFile(floppy, bytes);
  }

  // Puts a BIOS that fails in front of the boot sector. It can never read `bad_sector`, if it is not 0. The floppy was
  // formatted with "-R 2 1440" or "-R 2 2880".
  void PutStarter(std::uint32_t bad_sector = 0) const {
    constexpr std::size_t kBadSector = 62;  // see floppy_starter.asm
    std::string starter = ReadFile(fs::path(BOOT_STARTERS) / "floppy.bin");
    if (bad_sector != 0) {
      starter[kBadSector] = static_cast<char>(bad_sector / 36);
      starter[kBadSector + 1] = static_cast<char>(bad_sector / 18 % 2);
      starter[kBadSector + 2] = static_cast<char>(bad_sector % 18 + 1);
    }
    PutSector(boot_sector, 1);
    PutSector(starter);
  }

  fs::path floppy = place / "f.img";
  std::string boot_sector = ReadFile(FLOPPY_SECTOR);
  std::string loader = ReadFile(FLOPPY_LOADER);
};

TEST_F(FloppyBoot, Files_HaveTheRightSizes) {
  EXPECT_EQ(boot_sector.size(), kFloppySector);
  EXPECT_EQ(boot_sector.substr(510), "\x55\xAA");
  EXPECT_EQ(loader.size() % kFloppySector, 0U);
  EXPECT_LT(loader.size(), 65536U);
}

TEST_F(FloppyBoot, OfCreateDsk_ShowsTheMenu) {
  for (const char* format : {"144", "288"}) {
    MakeWithCreateDsk(format);
    Emulator pc(FloppyDrive(floppy));
    EXPECT_TRUE(pc.WaitForScreen(kEntriesShown)) << format;
    EXPECT_THAT(pc.Screen(), HasSubstr("My floppy"));
    EXPECT_THAT(pc.Screen(), HasSubstr("1  First hard disk"));
  }
}

TEST_F(FloppyBoot, OfEverySize_ShowsTheMenu) {
  for (const char* options : {"1440", "2880", "1200", "720", "360", "-f 1 -r 512 -R 3 -s 4 1440"}) {
    Make(options);
    EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen(kEntriesShown)) << options;
  }
}

TEST_F(FloppyBoot, VolumeLabelWithTheNameOfTheLoader_IsNotTakenForIt) {
  Make("-n 'LOADER  BIN' 1440");
  EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen(kEntriesShown));
}

TEST_F(FloppyBoot, LoaderInPieces_IsLoaded) {
  for (const char* size : {"1440", "2880"}) {
    Format(size);
    WriteFile(place / "filler", std::string(600, 'f'));
    Run("for i in `seq 150`; do echo filler$i; done >names; for i in `cat names`; do cp filler $i; done;"
        "mcopy -i f.img filler?* ::; for i in `seq 1 2 150`; do echo ::filler$i; done | xargs mdel -i f.img");
    PutLoader();
    Run("mdel -i f.img '::filler*'");
    PutFiles();
    PutSector(boot_sector);
    EXPECT_EQ(ReadFile(floppy).find(loader), std::string::npos) << "it is in one piece";
    EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen(kEntriesShown)) << size;
  }
}

TEST_F(FloppyBoot, LoaderBehindOtherFilesInTheRoot_IsFound) {
  Format("1440");
  Run("touch `seq 200`; mcopy -i f.img `seq 200` ::");
  PutLoader();
  PutFiles();
  PutSector(boot_sector);
  EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen(kEntriesShown));
}

TEST_F(FloppyBoot, MissingLoader_IsReported) {
  for (const char* options : {"1440", "-n 'LOADER  BIN' 1440"}) {
    Format(options);
    PutSector(boot_sector);
    Emulator pc(FloppyDrive(floppy));
    EXPECT_TRUE(pc.WaitForScreen("\nLOADER.BIN is missing or damaged.\nPress a key to restart.")) << options;
    pc.SendKey("a");
    EXPECT_TRUE(pc.WaitForEnd());
  }
}

TEST_F(FloppyBoot, FolderInPlaceOfTheLoader_IsReported) {
  Format("1440");
  Run("mmd -i f.img ::LOADER.BIN");
  PutSector(boot_sector);
  EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen("LOADER.BIN is missing or damaged."));
}

TEST_F(FloppyBoot, OtherFileInPlaceOfTheLoader_IsReported) {
  loader = std::string(2000, 'x');
  Make();
  EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen("LOADER.BIN is missing or damaged."));
}

TEST_F(FloppyBoot, DamagedLoader_IsReported) {
  for (const std::size_t at : {kFloppySector, loader.size() / 2, loader.size() - 1}) {
    Make();
    Damage(SectorOfLoader() * kFloppySector + at);
    Emulator pc(FloppyDrive(floppy));
    EXPECT_TRUE(
        pc.WaitForScreen("\nLOADER.BIN on this disk is damaged (code 3).\nMake the disk again, and use another "));
    pc.SendKey("a");
    EXPECT_TRUE(pc.WaitForEnd());
  }
}

TEST_F(FloppyBoot, SectorsOfTheLoaderInAnotherOrder_AreReported) {
  std::rotate(loader.begin() + kFloppySector, loader.begin() + 2 * kFloppySector, loader.end());
  Make();
  EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen("LOADER.BIN on this disk is damaged (code 3)."));
}

TEST_F(FloppyBoot, ChainOfTheLoaderThatIsCutOrHasNoEnd_IsReported) {
  for (const int next : {0xFFF, 0xFF7, 0, 0x00A}) {
    Make();
    const std::size_t cluster = SectorOfLoader() - 33 + 2 + 20;
    std::string bytes = ReadFile(floppy);
    const std::size_t at = kFloppySector + cluster * 3 / 2;
    ASSERT_EQ(cluster % 2, 0U);
    bytes[at] = static_cast<char>(next);
    bytes[at + 1] = static_cast<char>((bytes[at + 1] & 0xF0) | next >> 8);
    WriteFile(floppy, bytes);
    EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen("is damaged (code 3).")) << next;
  }
}

// A cluster that follows itself, and whose bytes say the same where they come to lie on the table in memory. Only the
// bound of the boot sector ends such a chain, before it has filled all memory.
TEST_F(FloppyBoot, CircleThatSurvivesOnTheTable_IsReported) {
  Make();
  const std::size_t sector = SectorOfLoader() + 20;
  const std::size_t cluster = sector - 33 + 2;
  const std::size_t at = cluster * 3 / 2;
  ASSERT_EQ(cluster % 2, 0U);
  ASSERT_LT(at % kFloppySector, kFloppySector - 1);
  std::string bytes = ReadFile(floppy);
  bytes[kFloppySector + at] = static_cast<char>(cluster);
  bytes[kFloppySector + at + 1] = static_cast<char>((bytes[kFloppySector + at + 1] & 0xF0) | cluster >> 8);
  bytes.replace(sector * kFloppySector + at % kFloppySector, 2, bytes, kFloppySector + at, 2);
  WriteFile(floppy, bytes);
  EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen("is damaged (code 3)."));
}

TEST_F(FloppyBoot, FullMemoryAndABiosWhoseReadsFailThreeTimes_ChangeNothing) {
  for (const char* options : {"-R 2 1440", "-R 2 2880"}) {
    Make(options);
    PutStarter();
    EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen(kEntriesShown)) << options;
  }
}

TEST_F(FloppyBoot, BadSectorWhileTheLoaderIsLoaded_IsReported) {
  Make("-R 2 1440");
  for (const std::uint32_t sector : {2U, 20U, SectorOfLoader() + 3}) {
    PutStarter(sector);
    Emulator pc(FloppyDrive(floppy));
    EXPECT_TRUE(pc.WaitForScreen("\nThe disk cannot be read (BIOS error 80).\nPress a key to restart.")) << sector;
    pc.SendKey("a");
    EXPECT_TRUE(pc.WaitForEnd());
  }
}

TEST_F(FloppyBoot, BadSectorInTheScript_IsReported) {
  Make("-R 2 1440");
  PutStarter(SectorOf("Set Title=My floppy"));
  EXPECT_TRUE(Emulator(FloppyDrive(floppy)).WaitForScreen("this script could not be read from the disk"));
}

TEST_F(FloppyBoot, MissingScript_IsReportedAndTheMenuHasWhatNeedsNoFile) {
  Format("1440");
  PutLoader();
  PutSector(boot_sector);
  Emulator pc(Join(FloppyDrive(floppy), HardDisk(place / "disk")));
  ASSERT_TRUE(pc.WaitForScreen("this script is not on the disk: boot/scripts/main.cds"));
  pc.SendKey("ret");
  ASSERT_TRUE(pc.WaitForScreen("First hard disk"));
  pc.SendKey("h");
  EXPECT_TRUE(pc.WaitForScreen("HD0"));
}

TEST_F(FloppyBoot, MistakeInTheScript_IsReportedWithItsLine) {
  Script("Nonsense\r\n");
  Make();
  Emulator pc(FloppyDrive(floppy));
  EXPECT_TRUE(pc.WaitForScreen("boot/scripts/main.cds, line 6"));
  pc.SendKey("ret");
  EXPECT_TRUE(pc.WaitForScreen(kEntriesShown));
}

TEST_F(FloppyBoot, Password_OpensTheMenu) {
  Script("Set PasswordRequest=1\r\nSet PasswordString=\"ab\"\r\n");
  Make();
  Emulator pc(FloppyDrive(floppy));
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("First hard disk")));
  pc.Type("ab\n");
  EXPECT_TRUE(pc.WaitForScreen(kEntriesShown));
}

TEST_F(FloppyBoot, EntryOfABootSectorForCds_IsGreyedWithTheReason) {
  Script("Entry Setup\r\n  Key S\r\n  CdSector boot/scripts/main.cds\r\nEndEntry\r\n");
  Make();
  Emulator pc(FloppyDrive(floppy));
  ASSERT_TRUE(pc.WaitForScreen("Setup"));
  pc.SendKey("down");
  EXPECT_TRUE(pc.WaitForScreen("This can only start from a CD drive."));
}

// memdisk is a kernel of the Linux boot protocol, and the image is its RAM disk.
TEST_F(FloppyBoot, Entries_StartAKernelAndAFloppyImage) {
  Script(
      "Entry Image\r\n  Key I\r\n  Floppy small.img\r\nEndEntry\r\n"
      "Entry Kernel\r\n  Key K\r\n  Linux boot/memdisk\r\n  Options harddisk raw\r\n  Initrd "
      "small.img\r\nEndEntry\r\n");
  for (const char* size : {"1440", "2880"}) {
    Make(size);
    PutSmallImage();
    for (const char* key : {"i", "k"}) {
      Emulator pc(FloppyDrive(floppy));
      ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
      pc.SendKey(key);
      EXPECT_TRUE(pc.WaitForScreen("SMALL0")) << size << " " << key;
    }
  }
}

TEST_F(FloppyBoot, KernelThatCannotBeRead_IsReportedAndTheMenuStays) {
  Script("Entry Image\r\n  Key I\r\n  Floppy small.img\r\nEndEntry\r\n");
  Make("-R 2 1440");
  PutSmallImage();
  PutStarter(SectorOf(ReadFile(place / "small.img").substr(0, kFloppySector)) + 100);
  Emulator pc(FloppyDrive(floppy));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.SendKey("i");
  EXPECT_TRUE(pc.WaitForScreen("small.img: The drive cannot read it. Write the image to another disk, or try"));
  EXPECT_TRUE(pc.WaitForScreen(kEntriesShown));
}

TEST_F(FloppyBoot, ImageFromTheMenuOfACd_ShowsItsOwnMenu) {
  Script("Entry Only here\r\n  Key O\r\n  HardDisk 1\r\nEndEntry\r\n");
  MakeWithCreateDsk("144");
  StartWith(ShippedFile("vexacd/boot/loader.bin"));
  WriteFile(tree / "boot/memdisk", ShippedFile("vexacd/boot/memdisk"));
  WriteFile(tree / "boot/f.img", ReadFile(floppy));
  WriteFile(tree / "boot/scripts/main.cds", "Entry Image\nKey I\nFloppy boot/f.img\nEndEntry\n");
  Master();
  Emulator pc(Join(CdDrive(image), HardDisk(place / "disk")));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.SendKey("i");
  ASSERT_TRUE(pc.WaitForScreen("Only here"));
  pc.SendKey("o");
  EXPECT_TRUE(pc.WaitForScreen("HD0"));
}

}  // namespace
}  // namespace discwright::testing
