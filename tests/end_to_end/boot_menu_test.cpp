// Tests of the boot menu of finished CDs in an emulated PC: what it shows, what its entries start, and its password.
#include <string>
#include <utility>

#include "tests/boot/emulator.h"
#include "tests/boot/setup_loader.h"
#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/chosen_discs.h"

namespace discwright::testing {

namespace {

using ::testing::Not;
using namespace std::string_literals;

constexpr const char* kFloppyText = "1  Memory test";  // in the menu of the disk
constexpr const char* kKeys = "Arrows: choose";

class BootMenu : public BuildTest {
 protected:
  // A script of the user, which joins the CD with the additional files.
  std::vector<std::string> WithLocalScript(const std::string& text) const {
    WriteFile(place / "additional" / "boot/scripts/local.cds", text);
    return AdditionalFiles(place / "additional");
  }
  std::vector<std::string> WithPassword(const std::string& password) const {
    WriteFile(place / "password", password + "\n");
    return {"--password-file", (place / "password").string()};
  }

  // A hard disk with a boot sector that writes "HD" and its drive number to the top left of the screen.
  std::vector<std::string> DiskWithASystem() const {
    std::string sector =
        "\xB8\x00\xB8\x8E\xC0"          // mov ax, 0B800h; mov es, ax
        "\x26\xC7\x06\x00\x00\x48\x07"  // mov word [es:0], 'H'
        "\x26\xC7\x06\x02\x00\x44\x07"  // mov word [es:2], 'D'
        "\x80\xC2\xB0"                  // add dl, '0' - 80h
        "\x26\x88\x16\x04\x00"          // mov [es:4], dl
        "\xF4\xEB\xFD"s;                // hlt; jmp back to it
    sector.resize(510, '\0');
    WriteFile(place / "disk", sector + "\x55\xAA" + std::string(1 << 20, '\0'));
    return HardDisk(place / "disk");
  }

  static void Type(Emulator& pc, const std::string& letters) {
    for (const char letter : letters) pc.SendKey(std::string(1, letter));
    pc.SendKey("ret");
  }
};

}  // namespace

TEST_F(BootMenu, EveryKindOfCdDrive_ShowsTheEntriesWhoseFilesAreOnTheCd) {
  ASSERT_EQ(Build().exit_code, 0);
  for (const auto& drive : {CdDrive(image), AhciCdDrive(image), UsbCdDrive(image)}) {
    Emulator pc(drive);
    EXPECT_TRUE(pc.WaitForScreen(kKeys));
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

TEST_F(BootMenu, FloppyImage_IsStartedFromMemory) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen(kKeys));
  pc.SendKey("s");
  EXPECT_TRUE(pc.WaitForScreen(kFloppyText));
}

TEST_F(BootMenu, SetupSectors_ReachTheLoadersOfTheirFolders) {
  ChosenDiscs discs{place / "discs"};
  discs.Insert(Shown::kUpperCase);
  ASSERT_EQ(Build(discs.Choices()).exit_code, 0);
  for (const auto& [key, folder] : {std::pair("w", "i386"), std::pair("c", "erdc"), std::pair("b", "oobc")}) {
    Emulator pc(CdDrive(image));
    ASSERT_TRUE(pc.WaitForScreen(kKeys));
    pc.SendKey(key);
    EXPECT_TRUE(pc.WaitForSerial(SetupLoaderLine(folder))) << key;
  }
}

TEST_F(BootMenu, FirstHardDisk_IsStarted) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(Join(CdDrive(image), DiskWithASystem()));
  ASSERT_TRUE(pc.WaitForScreen(kKeys));
  pc.SendKey("h");
  EXPECT_TRUE(pc.WaitForScreen("HD0"));
}

TEST_F(BootMenu, HardDiskThatIsNotThere_IsSaidAndTheMenuStays) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen(kKeys));
  pc.SendKey("h");
  EXPECT_TRUE(pc.WaitForScreen("The computer has no such hard disk"));
  pc.SendKey("t");
  EXPECT_TRUE(pc.WaitForScreen("Memory and disks"));
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
    ASSERT_TRUE(pc.WaitForScreen(kKeys));
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

TEST_F(BootMenu, MistakeInTheScriptOfTheUser_IsSaidWithItsLineAndTheMenuWorks) {
  ASSERT_EQ(Build(WithLocalScript("\nNonsense here\n")).exit_code, 0);
  Emulator pc(CdDrive(image));
  EXPECT_TRUE(pc.WaitForScreen("boot/scripts/local.cds, line 2"));
  pc.SendKey("ret");
  EXPECT_TRUE(pc.WaitForScreen("First hard disk"));
}

TEST_F(BootMenu, RightPassword_OpensTheMenu) {
  ASSERT_EQ(Build(WithPassword("open sesame")).exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("First hard disk")));
  for (const char* key : {"o", "p", "e", "n", "spc", "s", "e", "s", "a", "m", "e", "ret"}) pc.SendKey(key);
  EXPECT_TRUE(pc.WaitForScreen("First hard disk"));
}

TEST_F(BootMenu, WrongPasswordThreeTimes_RestartsTheMachine) {
  ASSERT_EQ(Build(WithPassword("secret")).exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  for (int turn = 0; turn < 2; ++turn) {
    ASSERT_TRUE(pc.WaitForScreen("Type the password"));
    Type(pc, "h");
    ASSERT_TRUE(pc.WaitForScreen("Next try in"));
  }
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  Type(pc, "h");
  EXPECT_TRUE(pc.WaitForEnd());
  EXPECT_THAT(pc.Events(), HasSubstr("guest-reset"));
}

}  // namespace discwright::testing
