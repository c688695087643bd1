// Tests of finished CDs on a PC with another BIOS: that of Bochs.
#include <string>

#include "tests/boot/bochs.h"
#include "tests/end_to_end/boot_menu.h"

namespace discwright::testing {

namespace {

class SecondBios : public BootMenu {
 protected:
  // Types a password. It waits for the effect of each key, because the keyboard of this PC holds only a few keys.
  static void TypePassword(Bochs& pc, const std::string& password) {
    std::string stars = "Password: ";
    for (const char letter : password) {
      pc.Type(std::string(1, letter));
      ASSERT_TRUE(pc.WaitForScreen(stars += '*'));
    }
    pc.Type("\r");
  }
};

}  // namespace

TEST_F(SecondBios, Cd_ShowsTheMenu) {
  ASSERT_EQ(Build().exit_code, 0);
  Bochs pc(image, Bochs::StartsFrom::kCd);
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  EXPECT_THAT(pc.Screen(), HasSubstr("1  First hard disk"));
  EXPECT_THAT(pc.Screen(), HasSubstr("Power off"));
}

TEST_F(SecondBios, FloppyImage_IsStartedFromMemory) {
  ASSERT_EQ(Build().exit_code, 0);
  Bochs pc(image, Bochs::StartsFrom::kCd);
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.Type("s");
  EXPECT_TRUE(pc.WaitForScreen(kRescueDiskShown));
}

TEST_F(SecondBios, Overview_TellsTheMemoryAndGoesBackToTheMenu) {
  ASSERT_EQ(Build().exit_code, 0);
  Bochs pc(image, Bochs::StartsFrom::kCd);
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.Type("t");
  ASSERT_TRUE(pc.WaitForScreen("Memory and disks"));
  pc.Type("m");
  ASSERT_TRUE(pc.WaitForScreen("Hard disks that the BIOS knows: 0"));
  pc.Type(" ");
  EXPECT_TRUE(pc.WaitForScreen("Second hard disk"));
}

TEST_F(SecondBios, Password_OpensTheMenuOnlyWhenItIsRight) {
  ASSERT_EQ(Build(WithPassword("open Sesame")).exit_code, 0);
  Bochs pc(image, Bochs::StartsFrom::kCd);
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  TypePassword(pc, "s");
  ASSERT_TRUE(pc.WaitForScreen("Next try in 1 s"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("First hard disk")));
  ASSERT_TRUE(pc.WaitForScreen("Type the password"));
  TypePassword(pc, "open Sesame");
  EXPECT_TRUE(pc.WaitForScreen("First hard disk"));
}

TEST_F(SecondBios, ImageAsHardDisk_ShowsTheMenu) {
  ASSERT_EQ(Build().exit_code, 0);
  Bochs pc(image, Bochs::StartsFrom::kHardDisk);
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.Type("s");
  EXPECT_TRUE(pc.WaitForScreen(kRescueDiskShown));
}

}  // namespace discwright::testing
