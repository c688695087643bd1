// Tests of the boot menu's password: what the script says about it, how it is typed, and that nothing gets past it.
#include "boot/loader/password.h"

#include "tests/loader/menu_fixture.h"

namespace discwright::loader {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string kEntries = "Entry A\nKey A\nRestart\nEndEntry\nSet Timeout=1\n";

class PasswordTest : public MenuFixture {
 protected:
  void ShowWith(const std::string& password, const std::string& more = "") {
    Show("Set PasswordRequest=1\r\nSet PasswordString=\"" + password + "\"\r\n" + more + kEntries);
  }
  bool IsOpen() { return All().find("Password:") == std::string::npos; }
};

TEST_F(PasswordTest, RightPassword_OpensTheMenu) {
  ShowWith("top secret; #1");
  EXPECT_FALSE(IsOpen());
  Type("top secret; #1");
  EXPECT_FALSE(IsOpen());
  Enter();
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Chosen(), "A");
}

TEST_F(PasswordTest, TypedBytes_AreMasked) {
  ShowWith("secret");
  Type("sec");
  EXPECT_EQ(Row(8), "  Password: ***");
  EXPECT_THAT(All(), Not(HasSubstr("sec ")));
  Press(KeyKind::kBackspace);
  EXPECT_EQ(Row(8), "  Password: **");
  Press(KeyKind::kEscape);
  EXPECT_EQ(Row(8), "  Password:");
  Type(std::string(500, 'x'));
  EXPECT_EQ(Row(8), "  Password: " + std::string(64, '*'));
}

TEST_F(PasswordTest, CorrectedPassword_IsRight) {
  ShowWith("secret");
  Type("secXX");
  Press(KeyKind::kBackspace);
  Press(KeyKind::kBackspace);
  Type("ret");
  Enter();
  EXPECT_TRUE(IsOpen());
}

TEST_F(PasswordTest, WrongPasswords_AreNotRight) {
  for (const char* typed : {"", "s", "secre", "secretx", "Secret", "SECRET", "xsecret", "secret "}) {
    ShowWith("secret");
    Type(typed);
    Enter();
    EXPECT_FALSE(IsOpen()) << typed;
    Pass(37);
    EXPECT_FALSE(IsOpen()) << typed;
  }
}

TEST_F(PasswordTest, ThreeWrongTries_PauseLongerEachTimeAndRestart) {
  ShowWith("secret");
  for (const std::uint32_t seconds : {2U, 4U, 8U}) {
    Type("x");
    Enter();
    EXPECT_THAT(All(), HasSubstr("in " + std::to_string(seconds) + " s"));
    Type("secret");  // keys do not count during the pause
    EXPECT_EQ(Started(Enter()), "nothing");
    EXPECT_EQ(Started(Pass(seconds * 182 / 10 - 1)), "nothing");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Started(Pass(1)), seconds == 8 ? "restart" : "nothing");
  }
  Type("secret");
  EXPECT_EQ(Started(Enter()), "nothing");
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Started(Pass(1)), "restart");
}

TEST_F(PasswordTest, RightPasswordAtTheThirdTry_OpensTheMenu) {
  ShowWith("secret");
  for (int i = 0; i < 2; ++i) {
    Enter();
    Pass(100);
  }
  Type("secret");
  Enter();
  EXPECT_TRUE(IsOpen());
}

TEST_F(PasswordTest, EmptyPassword_IsJustEnter) {
  ShowWith("");
  EXPECT_FALSE(IsOpen());
  Enter();
  EXPECT_TRUE(IsOpen());
  ShowWith("");
  Type("x");
  Enter();
  EXPECT_FALSE(IsOpen());
}

TEST_F(PasswordTest, EveryByte_CanBeTyped) {
  std::string password;
  for (int byte = 32; byte < 256; ++byte) {
    if (byte != '"' && byte != 127) password += static_cast<char>(byte);
  }
  ShowWith(password);
  Type(password);
  Enter();
  EXPECT_TRUE(IsOpen());
}

TEST_F(PasswordTest, AltWithThreeDigitsOfTheTopRow_TypesTheByte) {
  ShowWith("a\xFC");
  Type("a");
  Press(KeyKind::kAltDigit, 9);
  Press(KeyKind::kAltDigit, 9);
  Press(KeyKind::kAltDigit, 9);  // no byte has this number
  Press(KeyKind::kAltDigit, 2);
  Press(KeyKind::kOther);  // begins anew
  Press(KeyKind::kAltDigit, 2);
  Press(KeyKind::kAltDigit, 5);
  Press(KeyKind::kAltDigit, 2);
  Enter();
  EXPECT_TRUE(IsOpen());
}

TEST_F(PasswordTest, PasswordOf60000Bytes_CanBeTyped) {
  const std::string password(60000, 'p');
  ShowWith(password);
  Type(password);
  Enter();
  EXPECT_TRUE(IsOpen());
}

TEST_F(PasswordTest, QuoteInThePassword_EndsItEarlyWithoutAMistake) {
  ShowWith("ab\"cd");
  Type("ab");
  Enter();
  EXPECT_TRUE(IsOpen());
  EXPECT_THAT(All(), Not(HasSubstr("mistake")));
}

TEST_F(PasswordTest, NothingElse_GetsPastIt) {
  ShowWith("secret", "Bad line\nPrint hello\nWait\n");
  for (const KeyKind key :
       {KeyKind::kOther, KeyKind::kUp, KeyKind::kDown, KeyKind::kHome, KeyKind::kEnd, KeyKind::kPageUp,
        KeyKind::kPageDown, KeyKind::kEscape, KeyKind::kBackspace, KeyKind::kAltDigit}) {
    EXPECT_EQ(Started(Press(key)), "nothing");
    EXPECT_FALSE(IsOpen());
  }
  EXPECT_EQ(Started(Type("a1")), "nothing");
  menu->Resume("");
  EXPECT_EQ(Started(Pass(100000)), "nothing");
  EXPECT_FALSE(IsOpen());
  EXPECT_THAT(All(), Not(HasSubstr("Bad line")));
}

TEST_F(PasswordTest, MistakesAndPrints_FollowThePassword) {
  ShowWith("x", "Bad\nPrint hello\nWait\n");
  Type("x");
  Enter();
  EXPECT_THAT(All(), HasSubstr("no line begins with this word: Bad"));
  Enter();
  EXPECT_EQ(Row(2), "  hello");
  Enter();
  EXPECT_THAT(Row(21), HasSubstr("Starts in 1 s"));
  EXPECT_EQ(Started(Pass(18)), "start ");
}

TEST_F(PasswordTest, LaterLines_CannotTakeItBack) {
  for (const char* lines : {"Set PasswordRequest=0\n", "Set PasswordString=\"\"\n", "Set PasswordString=other\n"}) {
    ShowWith("secret", lines);
    EXPECT_FALSE(IsOpen()) << lines;
    Enter();
    Pass(100);
    EXPECT_FALSE(IsOpen()) << lines;
    Type("secret");
    Enter();
    EXPECT_TRUE(IsOpen()) << lines;
  }
}

TEST_F(PasswordTest, LaterLines_CanSwitchItOn) {
  Show("Set PasswordRequest=0\nSet PasswordString=\"\"\nSet PasswordRequest=1\nSet PasswordString=own\n" + kEntries);
  EXPECT_FALSE(IsOpen());
  Type("own");
  Enter();
  EXPECT_TRUE(IsOpen());
}

TEST_F(PasswordTest, RequestWithAMistake_AsksForThePassword) {
  for (const char* line :
       {"Set PasswordRequest=yes", "Set PasswordRequest=", "Set PasswordRequest", "set passwordREQUEST 1",
        "Set PasswordRequest=\"\"", "Set PasswordRequest=\"1", "Set PasswordRequest=01"}) {
    Show(std::string(line) + "\nSet PasswordString=\"x\"\n" + kEntries);
    EXPECT_FALSE(IsOpen()) << line;
  }
}

TEST_F(PasswordTest, RequestWithoutAnyPassword_DoesNotOpenAndSaysWhy) {
  Show("Set PasswordRequest=1\n" + kEntries);
  EXPECT_THAT(All(), HasSubstr("sets none"));
  Enter();
  EXPECT_FALSE(IsOpen());
  Show("Set PasswordRequest=1\nSet PasswordString=\n" + kEntries);
  Enter();
  EXPECT_FALSE(IsOpen());
}

}  // namespace
}  // namespace discwright::loader
