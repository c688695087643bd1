// Tests of the boot menu of finished CDs in an emulated PC: what it shows, what its entries start, and its password.
#include <string>
#include <utility>

#include "tests/boot/setup_loader.h"
#include "tests/end_to_end/boot_menu.h"
#include "tests/end_to_end/chosen_discs.h"

namespace discwright::testing {

TEST_F(BootMenu, EveryKindOfCdDrive_ShowsTheEntriesWhoseFilesAreOnTheCd) {
  ASSERT_EQ(Build().exit_code, 0);
  for (const auto& drive : {CdDrive(image), AhciCdDrive(image), UsbCdDrive(image)}) {
    Emulator pc(drive);
    EXPECT_TRUE(pc.WaitForScreen(kEntriesShown));
    const std::string screen = pc.Screen();
    EXPECT_THAT(screen, HasSubstr("Vexa Rescue CD"));
    EXPECT_THAT(screen, HasSubstr("1  First hard disk"));
    EXPECT_THAT(screen, HasSubstr("2  Vexa Rescue Software "));
    EXPECT_THAT(screen, HasSubstr("Vexa Network Access"));
    EXPECT_THAT(screen, HasSubstr("Power off"));
    EXPECT_THAT(screen, Not(HasSubstr("Windows 2000/XP Setup")));
    EXPECT_THAT(screen, Not(HasSubstr("Launcher")));
  }
}

// README.md shows this picture: the menu of a CD that has everything.
TEST_F(BootMenu, Picture_IsTakenOfAFullMenu) {
  ChosenDiscs discs{place / "discs"};
  discs.Insert(Shown::kUpperCase);
  ASSERT_EQ(Build(discs.Choices()).exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.SendKey("down");  // ends the countdown
  ASSERT_TRUE(pc.WaitForScreen("Starts the disk with the memory test"));
  for (const char* entry : {"Windows 2000/XP Setup", "Launcher", "ERD Commander", "BlueCon", "Power off"}) {
    EXPECT_THAT(pc.Screen(), HasSubstr(entry));
  }
  fs::create_directories(SCREENSHOTS);
  const fs::path picture = fs::path(SCREENSHOTS) / "boot_menu.png";
  fs::remove(picture);
  pc.SavePicture(picture);
  const std::string bytes = ReadFile(picture);
  EXPECT_EQ(bytes.substr(1, 3), "PNG");
  // The size of the text mode of VGA, as numbers with the high byte first.
  EXPECT_EQ(bytes.substr(16, 8), std::string("\0\0\x02\xD0\0\0\x01\x90", 8));
}

TEST_F(BootMenu, FloppyImage_IsStartedFromMemory) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.SendKey("s");
  EXPECT_TRUE(pc.WaitForScreen(kRescueDiskShown));
}

// QEMU knows no 80386: its oldest processor is the 80486.
TEST_F(BootMenu, OldMachineWith4MbOfMemory_ShowsTheMenuAndStartsAFloppyImage) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(Join(CdDrive(image), std::vector<std::string>{"-cpu", "486", "-m", "4"}));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.SendKey("s");
  EXPECT_TRUE(pc.WaitForScreen(kRescueDiskShown));
}

TEST_F(BootMenu, SetupSectors_ReachTheLoadersOfTheirFolders) {
  ChosenDiscs discs{place / "discs"};
  discs.Insert(Shown::kUpperCase);
  ASSERT_EQ(Build(discs.Choices()).exit_code, 0);
  for (const auto& [key, folder] : {std::pair("w", "i386"), std::pair("c", "erdc"), std::pair("b", "oobc")}) {
    Emulator pc(CdDrive(image));
    ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
    pc.SendKey(key);
    EXPECT_TRUE(pc.WaitForSerial(SetupLoaderLine(folder))) << key;
  }
}

TEST_F(BootMenu, FirstHardDisk_IsStarted) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(Join(CdDrive(image), DiskWithASystem()));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.SendKey("h");
  EXPECT_TRUE(pc.WaitForScreen("HD0"));
}

TEST_F(BootMenu, HardDiskThatIsNotThere_IsReportedAndTheMenuStays) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.SendKey("h");
  EXPECT_TRUE(pc.WaitForScreen("The computer has no such hard disk"));
  pc.SendKey("t");
  EXPECT_TRUE(pc.WaitForScreen("Memory and disks"));
}

// The help line shows which entry is chosen.
TEST_F(BootMenu, EveryKey_DoesWhatTheMenuSays) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen("Starts in "));
  const auto press = [&](const char* key, const char* help) {
    pc.SendKey(key);
    EXPECT_TRUE(pc.WaitForScreen(help)) << key;
  };
  press("down", "Starts the disk with the memory test");
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("Starts in "))) << "a key ends the countdown";
  press("end", "Switches the computer off.");
  press("up", "Restarts the computer.");
  press("home", "Starts the system on the first hard disk");
  press("pgdn", "Switches the computer off.");
  press("pgup", "Starts the system on the first hard disk");
  press("5", "Second hard disk");
  press("m", "Memory and disks of this computer");
  press("spc", "Second hard disk");
  press("esc", "Vexa Network Access");
  press("v", "Starts the disk with the memory test");  // the next entry that begins with this letter
  pc.SendKey("down");
  press("v", "from the network");
}

TEST_F(BootMenu, TimeOut_StartsTheDefaultEntry) {
  ASSERT_EQ(Build(WithLocalScript("Set Timeout=1\r\n")).exit_code, 0);
  Emulator pc(Join(CdDrive(image), DiskWithASystem()));
  EXPECT_TRUE(pc.WaitForScreen("HD0"));
}

TEST_F(BootMenu, RestartAndPowerOff_EndTheMachine) {
  ASSERT_EQ(Build().exit_code, 0);
  for (const auto& [key, event] : {std::pair("r", "guest-reset"), std::pair("p", "guest-shutdown")}) {
    Emulator pc(CdDrive(image));
    ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
    pc.SendKey(key);
    EXPECT_TRUE(pc.WaitForEnd());
    EXPECT_THAT(pc.Events(), HasSubstr(event));
  }
}

TEST_F(BootMenu, ScriptOfTheUser_AddsItsEntries) {
  ASSERT_EQ(Build(WithLocalScript("Entry Mine\n  Key X\n  Help Of my own.\n  HardDisk 1\nEndEntry\n")).exit_code, 0);
  Emulator pc(Join(CdDrive(image), DiskWithASystem()));
  ASSERT_TRUE(pc.WaitForScreen("Mine"));
  pc.SendKey("x");
  EXPECT_TRUE(pc.WaitForScreen("HD0"));
}

TEST_F(BootMenu, MistakeInTheScriptOfTheUser_IsReportedWithItsLineAndTheMenuWorks) {
  ASSERT_EQ(Build(WithLocalScript("\nNonsense here\n")).exit_code, 0);
  Emulator pc(CdDrive(image));
  EXPECT_TRUE(pc.WaitForScreen("boot/scripts/local.cds, line 2"));
  pc.SendKey("ret");
  EXPECT_TRUE(pc.WaitForScreen("First hard disk"));
}

}  // namespace discwright::testing
