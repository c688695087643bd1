// Tests of finished images as USB sticks and hard disks in an emulated PC: the menu is that of the CD. The tests look
// at its password, at what it starts, and at what it shows in grey.
#include <string>

#include "tests/end_to_end/boot_menu.h"
#include "tests/end_to_end/chosen_discs.h"

namespace discwright::testing {

namespace {

class Stick : public BootMenu {};

}  // namespace

TEST_F(Stick, UsbStickAndIdeDisk_ShowTheMenuOfTheCd) {
  ASSERT_EQ(Build().exit_code, 0);
  WriteFile(place / "disk", std::string(1 << 20, '\0'));
  const auto other = HardDisk(place / "disk");
  for (const auto& drives :
       {UsbStick(image), Join(UsbStick(image), other), IdeDisks({image}), IdeDisks({image, place / "disk"})}) {
    Emulator pc(drives);
    EXPECT_TRUE(pc.WaitForScreen(kEntriesShown));
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
    ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
    pc.SendKey("s");
    EXPECT_TRUE(pc.WaitForScreen(kRescueDiskShown));
  }
}

TEST_F(Stick, LinuxKernelWithItsRamDisk_IsStarted) {
  WriteFile(place / "additional" / "mine/floppy.img", FloppyThatShows("Mine"));
  const std::string script =
      "Entry Kernel\nKey X\nLinux boot/memdisk\nOptions from-the-stick floppy\nInitrd mine/floppy.img\nEndEntry\n";
  ASSERT_EQ(Build(WithLocalScript(script)).exit_code, 0);
  Emulator pc(UsbStick(image));
  ASSERT_TRUE(pc.WaitForScreen("Kernel"));
  pc.SendKey("x");
  EXPECT_TRUE(pc.WaitForScreen("Mine0"));
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
  ASSERT_EQ(Build(WithPassword("secret")).exit_code, 0);
  Emulator pc(UsbStick(image));
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("First hard disk")));
  pc.Type("x\n");
  ASSERT_TRUE(pc.WaitForScreen("Next try in"));
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  pc.Type("secret\n");
  EXPECT_TRUE(pc.WaitForScreen("First hard disk"));
}

}  // namespace discwright::testing
