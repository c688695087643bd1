// Tests of the two installation info dialogs: how they open and close, what they show, and what OK saves.
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>

#include "tests/desktop/qt/window_fixture.h"

namespace discwright::desktop {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kKeyFile = "C:\\Discwright\\keyfile2.txt";

struct InfoDialog {
  const char* name;
  const char* caption;
  const char* button;
  const char* box;
  int page;
  std::vector<std::pair<std::string, std::string>> fields;  // label and field
  const char* saved;
};

class InfoDialogTest : public testing::WindowFixture, public ::testing::WithParamInterface<InfoDialog> {
 protected:
  InfoDialogTest() {
    GoTo(GetParam().page);
    Click(GetParam().box);
  }
  // Opens the dialog by its button and calls `act` in it.
  void Open(const std::function<void(QDialog& dialog)>& act) {
    watch.InNext([this, act](QDialog& dialog) {
      EXPECT_EQ(dialog.objectName(), GetParam().name);
      act(dialog);
    });
    Click(GetParam().button);
    Settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the dialog is still open";
  }
};

TEST_P(InfoDialogTest, Opened_ShowsItsFieldsAndTheirLabels) {
  Open([&](QDialog& dialog) {
    EXPECT_EQ(FromQt(dialog.windowTitle()), GetParam().caption);
    EXPECT_TRUE(dialog.isModal());
    EXPECT_EQ(dialog.parentWidget(), &main());
    for (const auto& [label, field] : GetParam().fields) {
      EXPECT_TRUE(IsUsable(field)) << field;
      const auto& widget = The<QLabel>(label);
      EXPECT_TRUE(widget.isVisible()) << label;
      EXPECT_EQ(widget.buddy(), &Widget(field)) << label;
    }
    EXPECT_EQ(Focus(), GetParam().fields.front().second);
    EXPECT_EQ(FromQt(The<QAbstractButton>("CmdOK").text()), "OK");
    EXPECT_EQ(FromQt(The<QAbstractButton>("CmdCancel").text()), "Cancel");
    PressKey(Qt::Key_Escape);
  });
}

TEST_P(InfoDialogTest, OpenedAgain_BeginsWithItsFirstField) {
  Open([&](QDialog&) {
    The<QAbstractButton>("CmdCancel").setFocus();
    PressKey(Qt::Key_Escape);
  });
  Open([&](QDialog&) {
    EXPECT_EQ(Focus(), GetParam().fields.front().second);
    PressKey(Qt::Key_Escape);
  });
}

TEST_P(InfoDialogTest, WhileItIsOpen_TheMainWindowRefusesInput) {
  Open([&](QDialog& dialog) {
    ClickOn(*main().findChild<QWidget*>("CmdNext"));
    ClickOn(*main().findChild<QWidget*>("CmdBack"));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(PageSeen(), GetParam().page);
    PressKey(Qt::Key_Escape);
  });
  EXPECT_EQ(PageSeen(), GetParam().page);
  Click("CmdNext");
  EXPECT_NE(PageSeen(), GetParam().page);
}

TEST_P(InfoDialogTest, OkAndEnter_SaveTheFieldsAndClose) {
  for (const std::function<void()>& agree : std::vector<std::function<void()>>{
           [this] { Click("CmdOK"); }, [] { PressKey(Qt::Key_Enter); }, [] { PressKey(Qt::Key_Return); }}) {
    if (host.Exists(kKeyFile)) host.nodes.erase(testing::FakeHost::Key(kKeyFile));
    Open([&](QDialog&) {
      WriteInto("TxtOwner", "Ann Example");
      WriteInto("TxtWorkgroup", "OFFICE");
      agree();
    });
    EXPECT_THAT(host.Content(kKeyFile), HasSubstr(GetParam().saved));
    EXPECT_THAT(host.Content(kKeyFile), HasSubstr("OwnerName=Ann Example"));
    EXPECT_THAT(host.Content(kKeyFile), HasSubstr("Workgroup=OFFICE"));
    EXPECT_EQ(PageSeen(), GetParam().page);
    EXPECT_EQ(Focus(), GetParam().button);
  }
}

TEST_P(InfoDialogTest, CancelEscAndTheCross_SaveNothingAndKeepTheTexts) {
  std::string before = "VexaUser";
  int number = 0;
  for (const std::function<void(QDialog&)>& leave : std::vector<std::function<void(QDialog&)>>{
           [this](QDialog&) { Click("CmdCancel"); }, [](QDialog&) { PressKey(Qt::Key_Escape); },
           [](QDialog& dialog) { dialog.close(); }}) {
    const std::string after = "Owner " + std::to_string(++number);
    Open([&](QDialog& dialog) {
      EXPECT_EQ(FieldText("TxtOwner"), before);
      WriteInto("TxtOwner", after);
      leave(dialog);
    });
    before = after;
    EXPECT_FALSE(host.Exists(kKeyFile));
    EXPECT_FALSE(records().CancelCopy);
    EXPECT_EQ(PageSeen(), GetParam().page);
  }
}

TEST_P(InfoDialogTest, EnterOnTheCancelButton_Cancels) {
  Open([&](QDialog&) {
    TabTo("CmdCancel");
    PressKey(Qt::Key_Enter);
  });
  EXPECT_FALSE(host.Exists(kKeyFile));
}

INSTANTIATE_TEST_SUITE_P(BothDialogs, InfoDialogTest,
                         ::testing::Values(InfoDialog{"FrmWin2KInfo",
                                                      "Windows 2K/XP/2003 Installation Info",
                                                      "CmdSetWin2KInfo",
                                                      "ChkWin2KInfo_Assis",
                                                      3,
                                                      {{"LblTemplate", "TxtTemplate"},
                                                       {"LblOwner", "TxtOwner"},
                                                       {"LblOrg", "TxtOrg"},
                                                       {"LblPCName", "TxtPCName"},
                                                       {"LblJoinName", "TxtWorkgroup"}},
                                                      "[Win2KInfo]"},
                                           InfoDialog{"FrmWin9xInfo",
                                                      "Windows 9x Installation Info",
                                                      "CmdSetWin9xInfo",
                                                      "ChkWin9xInfo_Assis",
                                                      4,
                                                      {{"LblOwner", "TxtOwner"},
                                                       {"LblOrg", "TxtOrg"},
                                                       {"LblPCName", "TxtPCName"},
                                                       {"LblWorkgroup", "TxtWorkgroup"},
                                                       {"LblOSType", "TxtOSType"}},
                                                      "[Win9xInfo]"}),
                         [](const auto& one) { return std::string(one.param.name); });

class OptionsTest : public testing::WindowFixture {};

TEST_F(OptionsTest, OneOptionAtATime_ByClickAndByKey) {
  GoTo(3);
  Click("ChkWin2KInfo_Unattend");
  watch.InNext([&](QDialog&) {
    const auto& workgroup = The<QAbstractButton>("OptJoinWorkgroup");
    const auto& domain = The<QAbstractButton>("OptJoinDomain");
    const auto expect_domain = [&](bool on) {
      EXPECT_EQ(domain.isChecked(), on);
      EXPECT_EQ(workgroup.isChecked(), !on);
    };
    expect_domain(false);
    Click("OptJoinDomain");
    expect_domain(true);
    Click("OptJoinDomain");  // a second click does not clear it
    expect_domain(true);
    PressAlt('w');
    expect_domain(false);
    TabTo("OptJoinDomain");
    PressKey(Qt::Key_Space);
    expect_domain(true);
    PressKey(Qt::Key_Enter);
  });
  Click("CmdSetWin2KInfo");
  EXPECT_THAT(host.Content(kKeyFile), HasSubstr("JoinDomain=True"));
}

TEST_F(OptionsTest, FieldOfTheName_KeepsItsTextWhenTheOptionChanges) {
  GoTo(3);
  Click("ChkWin2KInfo_Unattend");
  watch.InNext([&](QDialog&) {
    WriteInto("TxtWorkgroup", "OFFICE");
    Click("OptJoinDomain");
    EXPECT_EQ(FieldText("TxtWorkgroup"), "OFFICE");
    PressKey(Qt::Key_Escape);
  });
  Click("CmdSetWin2KInfo");
  EXPECT_THAT(watch.messages, IsEmpty());
}

}  // namespace
}  // namespace discwright::desktop
