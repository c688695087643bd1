// Tests of the step that protects the boot menu by a password.
#include "pipeline/boot_password.h"

#include "tests/support/build_fixture.h"

namespace discwright::pipeline {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kScript = "C:\\Discwright\\vexacd\\boot\\scripts\\main.cds";
constexpr const char* kTemplate = "# Menu\r\nSet PasswordRequest=0\r\nSet PasswordString=\"\"\r\nShow\r\n";

class BootPassword : public discwright::testing::BuildFixture {
 protected:
  BootPassword() { host.AddFile(kScript, kTemplate, true); }
  std::string Protect(const std::string& first, const std::string& second) {
    ProtectBootMenu(context, first, second);
    return host.Content(kScript);
  }
};

// Each of the two patches ends the script with one more line end.
std::string Protected(const std::string& password) {
  return "# Menu\r\nSet PasswordRequest=1\r\nSet PasswordString=\"" + password + "\"\r\nShow\r\n\r\n\r\n";
}

TEST_F(BootPassword, EqualEntries_SwitchTheProtectionOnWithThePassword) {
  std::vector<std::string> shown;
  Listen(main.LblSub_Step, [&](forms::Control&, forms::Facet facet, forms::By) {
    if (facet == forms::Facet::kRepaint) shown.push_back(main.LblSub_Step.caption);
  });
  EXPECT_EQ(Protect("secret", "secret"), Protected("secret"));
  EXPECT_THAT(shown, ElementsAre("Adding Password Protection to the Boot Script"));
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(BootPassword, EmptyEntries_AreEqual) { EXPECT_EQ(Protect("", ""), Protected("")); }

TEST_F(BootPassword, EntriesThatDifferInLetterCaseOnly_AreDifferent) {
  EXPECT_EQ(Protect("Secret", "secret"), kTemplate);
  ASSERT_THAT(user.messages, SizeIs(1));
  EXPECT_EQ(user.messages[0].text, "Entered Passwords doesn't match, password protection will be disabled");
  EXPECT_EQ(user.messages[0].title, "Password Protection disabled");
  EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kCritical);
  EXPECT_EQ(cancelled, 0);
}

TEST_F(BootPassword, QuoteInThePassword_IsWrittenAsTypedAndEndsTheValueEarly) {
  EXPECT_EQ(Protect("a\"b", "a\"b"), Protected("a\"b"));
}

TEST_F(BootPassword, PasswordWithUmlauts_IsWrittenInTheCodePage) {
  EXPECT_EQ(Protect("\xC3\xBC", "\xC3\xBC"), Protected("\xFC"));
}

TEST_F(BootPassword, PasswordThatTheCodePageLacks_IsAPatchingErrorAndLeavesTheMenuUnprotected) {
  Protect("\xE6\x97\xA5", "\xE6\x97\xA5");
  ASSERT_THAT(user.messages, SizeIs(1));
  EXPECT_EQ(user.messages[0].title, "Patching Error");
  EXPECT_THAT(notes.all(), SizeIs(2));  // one note on the patch, one on the unprotected menu
}

TEST_F(BootPassword, TemplateLinesInOtherLetterCase_AreFound) {
  host.AddFile(kScript, "SET passwordrequest=0\r\nset PASSWORDSTRING=\"\"");
  EXPECT_EQ(Protect("x", "x"), "Set PasswordRequest=1\r\nSet PasswordString=\"x\"\r\n\r\n");
}

TEST_F(BootPassword, ScriptWithoutTheTemplateLines_GetsNoPasswordAndIsNoted) {
  for (const char* script : {"Show\r\n", "Set PasswordString=\"x\"\r\n", "Set PasswordRequest=0\r\n"}) {
    host.AddFile(kScript, script);
    notes = {};
    Protect("x", "x");
    ASSERT_THAT(notes.all(), SizeIs(1)) << script;
    EXPECT_EQ(notes.all()[0].place, kScript);
    EXPECT_EQ(notes.all()[0].cause,
              "lacks the lines that set the password: the boot menu is not protected by a password");
  }
  EXPECT_EQ(host.Content(kScript), "Set PasswordRequest=1\r\n\r\n\r\n");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(BootPassword, ScriptThatHasThePasswordAlready_IsNotNoted) {
  host.AddFile(kScript, "Set PasswordRequest=1\r\nSet PasswordString=\"x\"\r\n");
  Protect("x", "x");
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(BootPassword, AnyCallThatFailsOnce_IsNotedOrTheMenuIsProtected) {
  for (int number = 0;; ++number) {
    notes = {};
    host.AddFile(kScript, kTemplate);
    host.FailCall(number);
    const std::string script = Protect("x", "x");
    if (host.FailedCall().empty()) break;
    EXPECT_TRUE(script == Protected("x") || !notes.all().empty()) << host.FailedCall();
  }
}

TEST_F(BootPassword, ScriptThatCannotBeReadAgain_IsNotedWithTheCause) {
  host.AddFile(kScript, "Show\r\n");
  host.FailOn("ReadWholeFile", "main.cds", host::ErrorClass::kNotReady, "the disk is gone");
  Protect("x", "x");
  ASSERT_FALSE(notes.all().empty());
  EXPECT_EQ(notes.all().back().place, kScript);
  EXPECT_EQ(notes.all().back().cause,
            "could not be read, so the boot menu may not be protected by a password: the disk is gone");
}

TEST_F(BootPassword, MissingScript_IsNoted) {
  host.nodes.erase(discwright::testing::FakeHost::Key(kScript));
  Protect("x", "x");
  EXPECT_THAT(user.messages, IsEmpty());
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kScript);
  EXPECT_EQ(notes.all()[0].cause, "is missing: the boot menu is not protected by a password");
}

}  // namespace
}  // namespace discwright::pipeline
