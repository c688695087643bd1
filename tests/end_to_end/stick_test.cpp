// Tests of finished images as USB sticks and hard disks in an emulated PC: the same menu as from the CD, its password,
// what it starts, and what it shows in grey.
#include <string>

#include "tests/boot/emulator.h"
#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/chosen_discs.h"

namespace discwright::testing {

namespace {

using ::testing::Not;

constexpr const char* kMenuIsShown = "Arrows: choose";
constexpr const char* kTextOfTheFloppy = "1  Memory test";  // in its menu

class Stick : public BuildTest {};

}  // namespace

TEST_F(Stick, UsbStickAndIdeDisk_ShowTheMenuOfTheCd) {
  ASSERT_EQ(Build().exit_code, 0);
  WriteFile(place / "disk", std::string(1 << 20, '\0'));
  const auto other = HardDisk(place / "disk");
  for (const auto& drives :
       {UsbStick(image), Join(UsbStick(image), other), IdeDisks({image}), IdeDisks({image, place / "disk"})}) {
    Emulator pc(drives);
    EXPECT_TRUE(pc.WaitForScreen(kMenuIsShown));
    const std::string screen = pc.Screen();
    EXPECT_THAT(screen, HasSubstr("Vexa Rescue CD"));
    EXPECT_THAT(screen, HasSubstr("1  First hard disk"));
    EXPECT_THAT(screen, HasSubstr("2  Vexa Rescue Software "));
    EXPECT_THAT(screen, HasSubstr("Power off"));
  }
}

TEST_F(Stick, FloppyImage_IsStartedFromMemory) {
  ASSERT_EQ(Build().exit_code, 0);
  for (const auto& drive : {UsbStick(image), IdeDisks({image})}) {
    Emulator pc(drive);
    ASSERT_TRUE(pc.WaitForScreen(kMenuIsShown));
    pc.SendKey("s");
    EXPECT_TRUE(pc.WaitForScreen(kTextOfTheFloppy));
  }
}

TEST_F(Stick, LinuxKernelWithItsRamDisk_IsStarted) {
  WriteFile(place / "additional" / "boot/scripts/local.cds",
            "Entry Kernel\n  Key X\n  Linux boot/memdisk\n  Options from-the-stick floppy\n"
            "  Initrd boot/images/vexastart.img\nEndEntry\n");
  ASSERT_EQ(Build(AdditionalFiles(place / "additional")).exit_code, 0);
  Emulator pc(UsbStick(image));
  ASSERT_TRUE(pc.WaitForScreen("Kernel"));
  pc.SendKey("x");
  EXPECT_TRUE(pc.WaitForScreen(kTextOfTheFloppy));
  EXPECT_THAT(pc.Screen(), HasSubstr("command line: from-the-stick floppy"));
}

TEST_F(Stick, SetupSectors_AreGreyedWithTheReasonAndDoNotStart) {
  ChosenDiscs discs{place / "discs"};
  discs.Insert(Shown::kUpperCase);
  ASSERT_EQ(Build(discs.Choices()).exit_code, 0);
  constexpr const char* kReason = "This can only start from a CD drive.";
  Emulator pc(UsbStick(image));
  ASSERT_TRUE(pc.WaitForScreen("Windows 2000/XP Setup"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr(kReason)));
  pc.SendKey("w");
  ASSERT_TRUE(pc.WaitForScreen(kReason));
  pc.SendKey("ret");
  pc.SendKey("t");  // the menu goes on
  EXPECT_TRUE(pc.WaitForScreen("Next boot device"));
  EXPECT_EQ(pc.Serial(), "");
}

TEST_F(Stick, Password_IsAskedForBeforeTheMenu) {
  WriteFile(place / "password", "secret\n");
  ASSERT_EQ(Build({"--password-file", (place / "password").string()}).exit_code, 0);
  Emulator pc(UsbStick(image));
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("First hard disk")));
  for (const char* key : {"x", "ret"}) pc.SendKey(key);
  ASSERT_TRUE(pc.WaitForScreen("Next try in"));
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  for (const char* key : {"s", "e", "c", "r", "e", "t", "ret"}) pc.SendKey(key);
  EXPECT_TRUE(pc.WaitForScreen("First hard disk"));
}

}  // namespace discwright::testing
