// Tests of the messages with which a page refuses Next: what the box shows, and which field has the focus afterwards.
#include <QLineEdit>

#include "tests/desktop/qt/window_fixture.h"

namespace discwright::desktop {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct Refusal {
  const char* field;
  int page;
  const char* box;  // the check box that makes the page check the field; empty: it always does
  const char* text;
  QMessageBox::Icon icon;
};

class RefusalTest : public testing::WindowFixture, public ::testing::WithParamInterface<Refusal> {};

TEST_P(RefusalTest, WrongLocation_IsNamedAndItsFieldGetsTheFocus) {
  const Refusal& refusal = GetParam();
  GoTo(refusal.page);
  const std::string box = refusal.box;
  if (!box.empty()) Click(box);
  WriteInto(refusal.field, "X:\\nowhere");
  Click("CmdNext");
  Settle();
  ASSERT_EQ(watch.messages.size(), 1U);
  const testing::SeenMessage& message = watch.messages[0];
  EXPECT_EQ(message.title, "Error");
  EXPECT_EQ(message.text, refusal.text);
  EXPECT_EQ(message.icon, refusal.icon);
  EXPECT_EQ(message.buttons, QMessageBox::Ok);
  EXPECT_THAT(message.detail, HasSubstr("X:"));
  EXPECT_EQ(PageSeen(), refusal.page);
  EXPECT_EQ(Focus(), refusal.field);
  EXPECT_EQ(FieldText(refusal.field), "X:\\nowhere");
}

constexpr auto kStop = QMessageBox::Critical;
constexpr auto kExclamation = QMessageBox::Warning;

INSTANTIATE_TEST_SUITE_P(
    AllLocations, RefusalTest,
    ::testing::Values(Refusal{"Txt_i386_Loc", 2, "",
                              "The selected folder doesn't contain a Windows 2000/XP installation !\n"
                              "Select your Windows setup source Directory",
                              kStop},
                      Refusal{"TxtSP_exe", 2, "ChkSlipstream",
                              "The selected Service pack file is not correct !\n"
                              "Select your Windows Service pack EXE file",
                              kStop},
                      Refusal{"TxtWin9x_Loc", 4, "",
                              "The selected folder doesn't contain a Windows 98/Me installation !\n"
                              "Select your Windows setup source Directory",
                              kStop},
                      Refusal{"TxtERDC", 5, "ChkERDC",
                              "ERD Commander 2002/2003 doesn't seem to be located in the selected directory\n"
                              "Select ERD Commader 2002/2003 location",
                              kExclamation},
                      Refusal{"TxtBCon", 5, "ChkBCon",
                              "O&O Blue Con XXL doesn't seem to be located in the selected directory\n"
                              "Select Blue Con XXL location",
                              kExclamation},
                      Refusal{"TxtUtils_Loc", 6, "ChkVexaUtils",
                              "The Vexa Utilities folder doesn't exist !\nSelect a valid Directory", kStop},
                      Refusal{"TxtAddFiles_Loc", 6, "ChkAddFiles",
                              "The Additional files folder doesn't exist !\nSelect a valid Directory", kStop},
                      Refusal{"TxtISOLoc", 7, "", "ISO File destination is not correct, check again", kStop}),
    [](const auto& one) { return std::string(one.param.field); });

class PageMessagesTest : public testing::WindowFixture {};

TEST_F(PageMessagesTest, TwoWrongLocations_GiveTwoMessagesInARow) {
  GoTo(2);
  Click("ChkSlipstream");
  WriteInto("Txt_i386_Loc", "X:\\nowhere");
  WriteInto("TxtSP_exe", "X:\\nothing.exe");
  PressKey(Qt::Key_Enter);
  Settle();
  ASSERT_EQ(watch.messages.size(), 2U);
  EXPECT_THAT(watch.messages[0].text, HasSubstr("Windows 2000/XP installation"));
  EXPECT_THAT(watch.messages[1].text, HasSubstr("Service pack file"));
  EXPECT_EQ(PageSeen(), 2);
  EXPECT_EQ(Focus(), "TxtSP_exe");
}

TEST_F(PageMessagesTest, PasswordsThatDiffer_AreEmptiedAndTheOtherChecksAreStillMade) {
  GoTo(7);
  Click("ChkPassProtect");
  WriteInto("TxtPass1", "secret");
  WriteInto("TxtPass2", "Secret");
  WriteInto("TxtISOLoc", "X:\\nowhere\\a.iso");
  PressKey(Qt::Key_Enter);
  Settle();
  ASSERT_EQ(watch.messages.size(), 2U);
  EXPECT_EQ(watch.messages[0].text, "The Passwords don't Match - Reenter them");
  EXPECT_EQ(watch.messages[0].title, "Error");
  EXPECT_EQ(watch.messages[0].icon, QMessageBox::Critical);
  EXPECT_THAT(watch.messages[1].text, HasSubstr("ISO File destination"));
  EXPECT_EQ(FieldText("TxtPass1"), "");
  EXPECT_EQ(FieldText("TxtPass2"), "");
  EXPECT_EQ(PageSeen(), 7);
}

TEST_F(PageMessagesTest, EqualPasswords_AreAccepted) {
  GoTo(7);
  Click("ChkPassProtect");
  WriteInto("TxtPass1", "secret");
  WriteInto("TxtPass2", "secret");
  PressKey(Qt::Key_Enter);
  EXPECT_THAT(watch.messages, IsEmpty());
  EXPECT_EQ(PageSeen(), 8);
}

TEST_F(PageMessagesTest, CorrectedLocation_LetsNextGoOn) {
  GoTo(2);
  WriteInto("Txt_i386_Loc", "X:\\nowhere");
  PressKey(Qt::Key_Enter);
  Settle();
  PressKey(Qt::Key_A, Qt::ControlModifier);
  Write("S:\\I386");
  PressKey(Qt::Key_Enter);
  EXPECT_EQ(watch.messages.size(), 1U);
  EXPECT_EQ(PageSeen(), 3);
}

TEST_F(PageMessagesTest, UncheckedLocation_IsNotChecked) {
  GoTo(6);
  records().TxtUtils_Loc.text = "X:\\nowhere";
  PressKey(Qt::Key_Enter);
  EXPECT_THAT(watch.messages, IsEmpty());
  EXPECT_EQ(PageSeen(), 7);
}

// The message is shown over the window, and its close button means OK.
TEST_F(PageMessagesTest, EscInAMessage_ClosesItAndCancelsNothing) {
  GoTo(2);
  WriteInto("Txt_i386_Loc", "X:\\nowhere");
  watch.InNext([&](QDialog& box) {
    EXPECT_EQ(box.parentWidget(), &main());
    Click("CmdBack");
    EXPECT_EQ(PageSeen(), 2);
    PressKey(Qt::Key_Escape);
  });
  PressKey(Qt::Key_Enter);
  EXPECT_EQ(PageSeen(), 2);
  EXPECT_FALSE(records().CancelCopy);
}

}  // namespace
}  // namespace discwright::desktop
