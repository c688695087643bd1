// Tests of finished CDs on a PC with another BIOS: that of Bochs.
#include <string>

#include "tests/boot/bochs.h"
#include "tests/end_to_end/boot_menu.h"

namespace discwright::testing {

namespace {

constexpr const char* kMenuOfTheDisk = "1  Memory test";  // with the rescue software

class SecondBios : public BuildTest {
 protected:
  // Types a password, each key after the one before it was seen: the keyboard of this PC holds a few keys only.
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
  EXPECT_TRUE(pc.WaitForScreen(kMenuOfTheDisk));
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
  WriteFile(place / "password", "open Sesame\n");
  ASSERT_EQ(Build({"--password-file", (place / "password").string()}).exit_code, 0);
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
  EXPECT_TRUE(pc.WaitForScreen(kMenuOfTheDisk));
}

}  // namespace discwright::testing
