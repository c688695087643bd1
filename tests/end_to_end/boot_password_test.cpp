// Tests of the boot menu's password in an emulated PC, on CDs whose password was set by a whole build.
#include <string>

#include "tests/end_to_end/boot_menu.h"

namespace discwright::testing {

namespace {

constexpr const char* kPrompt = "Type the password";

class BootPassword : public BootMenu {
 protected:
  // Starts a CD with a password, types `typed`, and looks whether the menu opens.
  void ExpectToOpen(const std::vector<std::string>& protection, const std::string& typed) {
    ASSERT_EQ(Build(protection).exit_code, 0);
    Emulator pc(CdDrive(image));
    ASSERT_TRUE(pc.WaitForScreen(kPrompt));
    EXPECT_THAT(pc.Screen(), Not(HasSubstr("First hard disk")));
    pc.Type(typed + "\n");
    EXPECT_TRUE(pc.WaitForScreen("First hard disk"));
  }
};

}  // namespace

TEST_F(BootPassword, RightPassword_OpensTheMenu) { ExpectToOpen(WithPassword("secret"), "secret"); }

TEST_F(BootPassword, PasswordWithBlanksAndSigns_OpensTheMenu) {
  const std::string password = " Open, Sesame! ~`@#$%^&*()_+-={}[]|\\:;'<>,.?/ 09 aZ ";
  ExpectToOpen(WithPassword(password), password);
}

TEST_F(BootPassword, LongPassword_OpensTheMenu) {
  const std::string password = std::string(49, 'a') + std::string(50, 'b') + "c";
  ExpectToOpen(WithPassword(password), password);
}

TEST_F(BootPassword, EmptyPassword_OpensWithEnter) { ExpectToOpen({"--set", "ChkPassProtect=1"}, ""); }

TEST_F(BootPassword, EmptyPassword_IsNoOtherOne) {
  ASSERT_EQ(Build({"--set", "ChkPassProtect=1"}).exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen(kPrompt));
  pc.Type(" \n");
  EXPECT_TRUE(pc.WaitForScreen("This is not the password."));
}

// The build writes the password in Windows-1252, where the letter u with an umlaut is 252.
TEST_F(BootPassword, Umlaut_IsTypedByItsNumber) {
  ASSERT_EQ(Build(WithPassword("gr\xC3\xBCn")).exit_code, 0);
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen(kPrompt));
  pc.Type("gr");
  for (const char* key : {"alt+2", "alt+5", "alt+2"}) pc.SendKey(key);
  pc.Type("n\n");
  EXPECT_TRUE(pc.WaitForScreen("First hard disk"));
}

TEST_F(BootPassword, QuoteInThePassword_EndsItEarly) { ExpectToOpen(WithPassword("se\"cret"), "se"); }

TEST_F(BootPassword, WrongPasswordThreeTimes_RestartsTheMachine) {
  ASSERT_EQ(Build(WithPassword("secret")).exit_code, 0);
  Emulator pc(CdDrive(image));
  for (int turn = 1; turn <= 3; ++turn) {
    ASSERT_TRUE(pc.WaitForScreen(kPrompt));
    pc.Type("h\n");
    if (turn < 3) {
      ASSERT_TRUE(pc.WaitForScreen("Next try in"));
    }
  }
  EXPECT_TRUE(pc.WaitForEnd());
  EXPECT_THAT(pc.Events(), HasSubstr("guest-reset"));
}

// The script of the user has mistakes, a short time-out, and tries to take the password back.
TEST_F(BootPassword, NothingGetsPastIt) {
  const std::string script =
      "Set PasswordRequest=0\nSet PasswordString=\"\"\nSet Timeout=1\nNonsense\nPrint Hello\nEntry Mine\nKey "
      "X\nRestart\n";
  ASSERT_EQ(Build(Join(WithPassword("secret"), WithLocalScript(script))).exit_code, 0);
  Emulator pc(Join(CdDrive(image), DiskWithASystem()));
  ASSERT_TRUE(pc.WaitForScreen(kPrompt));
  for (const char* key :
       {"h", "x", "r", "1", "esc", "f1", "f8", "tab", "down", "end", "home", "ctrl+c", "alt+x", "esc"}) {
    pc.SendKey(key);
  }
  pc.Type("secre\n");
  EXPECT_TRUE(pc.WaitForScreen("This is not the password."));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("HD0")));
  ASSERT_TRUE(pc.WaitForScreen(kPrompt));
  pc.Type("secret\n");
  EXPECT_TRUE(pc.WaitForScreen("boot/scripts/local.cds, line 1"));
}

}  // namespace discwright::testing
