// Tests of the keyboard: the first focus, the Tab key, the access keys, and the keys of the buttons on every page.
#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <map>

#include "forms/all_windows.h"
#include "tests/desktop/qt/window_fixture.h"
#include "wizard/layout.h"

namespace discwright::desktop {
namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

class KeyboardFixture : public testing::WindowFixture {
 protected:
  // Checks every box that enables something, so that all controls can be used.
  void EnableEverything() {
    for (forms::CheckBox* box : {&records().ChkSlipstream, &records().ChkERDC, &records().ChkBCon,
                                 &records().ChkVexaUtils, &records().ChkAddFiles, &records().ChkPassProtect,
                                 &records().ChkWin2KInfo_Assis, &records().ChkWin9xInfo_Assis}) {
      box->value = 1;
    }
    records().LblResult.visible = true;
    records().TxtReport.visible = true;
  }
  wizard::Layout Page(int page) { return wizard::LayoutOfPage(program->windows, page); }

  std::vector<std::string> ExpectedTabs(const wizard::Layout& layout) {
    std::vector<std::string> names;
    for (const forms::Control* control : wizard::ControlsOf(layout)) {
      const bool reads = forms::TakesInput(*control) || dynamic_cast<const forms::TextBox*>(control) != nullptr;
      if (reads && forms::CanBeUsed(*control)) names.push_back(control->name());
    }
    return names;
  }
  // The key of a label is that of its field or link.
  static bool IsLabel(const forms::Control& control) {
    return dynamic_cast<const forms::Label*>(&control) != nullptr &&
           dynamic_cast<const forms::Link*>(&control) == nullptr;
  }
  // What Tab visits from the widget that has the focus until it comes back to it.
  std::vector<std::string> Tabs(Qt::Key key = Qt::Key_Tab) {
    std::vector<std::string> names;
    const std::string start = Focus();
    do {
      names.push_back(Focus());
      PressKey(key);
    } while (Focus() != start && names.size() < 50);
    return names;
  }
};

class PageKeysTest : public KeyboardFixture, public ::testing::WithParamInterface<int> {};

TEST_P(PageKeysTest, FirstControl_HasTheFocus) {
  static const std::map<int, std::string> first = {
      {0, "CmdNext"}, {1, "ChkGet_Vexadisks"}, {2, "Txt_i386_Loc"},   {3, "ChkDelTree_Lang"}, {4, "TxtWin9x_Loc"},
      {5, "ChkERDC"}, {6, "ChkVexaUtils"},     {7, "ChkPassProtect"}, {8, "CmdFinish"},       {9, "CmdFinish"}};
  GoTo(GetParam());
  EXPECT_EQ(Focus(), first.at(GetParam()));
  EXPECT_TRUE(Widget(Focus()).hasFocus());
  if (GetParam() == 0 || GetParam() >= 8) return;
  PressKey(Qt::Key_Enter);
  EXPECT_EQ(Focus(), first.at(GetParam() + 1));
  PressAlt('b');
  EXPECT_EQ(Focus(), first.at(GetParam()));
}

TEST_P(PageKeysTest, Tab_VisitsTheControlsInReadingOrderAndThenTheButtons) {
  EnableEverything();
  GoTo(GetParam());
  std::vector<std::string> expected = ExpectedTabs(Page(GetParam()));
  for (const char* button : {"CmdHelp", "CmdCancel", "CmdBack", "CmdNext", "CmdFinish"}) {
    if (IsUsable(button)) expected.emplace_back(button);
  }
  Widget(expected.front()).setFocus(Qt::TabFocusReason);
  EXPECT_THAT(Tabs(), ElementsAreArray(expected));
  std::reverse(expected.begin() + 1, expected.end());
  EXPECT_THAT(Tabs(Qt::Key_Backtab), ElementsAreArray(expected));
}

TEST_P(PageKeysTest, EachAccessKey_ReachesItsControl) {
  const auto controls = [this] { return wizard::ControlsOf(Page(GetParam())); };
  Start();
  EnableEverything();
  GoTo(GetParam());
  for (std::size_t i = 0; i < controls().size(); ++i) {
    forms::Control& control = *controls()[i];
    const char key = forms::AccessKey(control);
    if (key == 0 || IsLabel(control)) continue;
    SCOPED_TRACE(control.name() + " " + key);
    int clicks = 0;
    if (auto* const button = qobject_cast<QAbstractButton*>(&Widget(control.name()))) {
      if (auto* record = dynamic_cast<forms::CommandButton*>(&control)) record->click = nullptr;
      QObject::connect(button, &QAbstractButton::clicked, &watch, [&clicks] { ++clicks; });
      PressAlt(static_cast<char>(std::tolower(key)));
      EXPECT_EQ(clicks, 1);
      button->disconnect(&watch);
      EnableEverything();  // if the key has cleared a box
    } else {
      PressAlt(static_cast<char>(std::tolower(key)));
      EXPECT_EQ(Focus(), control.name());
    }
  }
  EXPECT_EQ(PageSeen(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(AllPages, PageKeysTest, ::testing::Range(0, 10));

using KeysTest = KeyboardFixture;

TEST_F(KeysTest, DialogsTabOrder_IsTheReadingOrder) {
  for (const auto& [page, button, box] : {std::tuple(3, "CmdSetWin2KInfo", "ChkWin2KInfo_Assis"),
                                          std::tuple(4, "CmdSetWin9xInfo", "ChkWin9xInfo_Assis")}) {
    Start();
    EnableEverything();
    GoTo(page);
    watch.InNext([&](QDialog& dialog) {
      forms::Form& form =
          page == 3 ? static_cast<forms::Form&>(program->windows.win2k_info) : program->windows.win9x_info;
      EXPECT_THAT(Tabs(), ElementsAreArray(ExpectedTabs(wizard::LayoutOfDialog(form))));
      dialog.close();
    });
    Click(button);
  }
}

TEST_F(KeysTest, DialogsAccessKeys_ReachTheirControls) {
  EnableEverything();
  GoTo(3);
  watch.InNext([&](QDialog& dialog) {
    int clicks = 0;
    program->windows.win2k_info.CmdBrwUnattend.click = [&] { ++clicks; };
    for (const forms::Control* control : wizard::ControlsOf(wizard::LayoutOfDialog(program->windows.win2k_info))) {
      const char key = forms::AccessKey(*control);
      if (key == 0 || IsLabel(*control)) continue;
      PressAlt(static_cast<char>(std::tolower(key)));
      if (dynamic_cast<const forms::TextBox*>(control) != nullptr) {
        EXPECT_EQ(Focus(), control->name());
      }
    }
    EXPECT_EQ(clicks, 1);
    dialog.close();
  });
  Click("CmdSetWin2KInfo");
}

TEST_F(KeysTest, EnterOnAFocusedButton_PressesThatButton) {
  GoTo(5);
  TabTo("CmdBack");
  PressKey(Qt::Key_Enter);
  EXPECT_EQ(PageSeen(), 4);
  TabTo("CmdCancel");
  PressKey(Qt::Key_Return);
  EXPECT_EQ(PageSeen(), 9);
}

TEST_F(KeysTest, EnterInAFieldABoxAndTheSummary_IsNextOrFinish) {
  GoTo(6);
  EnableEverything();
  Click("TxtUtils_Loc");
  PressKey(Qt::Key_Enter);
  EXPECT_EQ(PageSeen(), 7);
  Click("ChkCleanSession");
  PressKey(Qt::Key_Return);
  EXPECT_EQ(PageSeen(), 8);
  Click("TxtSummery");
  EXPECT_EQ(Focus(), "TxtSummery");
  bool finished = false;
  records().CmdFinish.click = [&] { finished = true; };
  PressKey(Qt::Key_Enter);
  EXPECT_TRUE(finished);
}

TEST_F(KeysTest, FinishPage_OpensALinkByEnterOnlyAfterTheUserHasGoneToIt) {
  int followed = 0;
  records().LblLink_cdshell.click = [&] { ++followed; };
  records().LblLink_vexacd.click = [&] { ++followed; };
  GoTo(9);
  PressAlt('d');
  EXPECT_EQ(Focus(), "LblLink_cdshell");
  PressKey(Qt::Key_Enter);
  EXPECT_EQ(followed, 1);
  EXPECT_TRUE(main().isVisible());
}

TEST_F(KeysTest, ClickOnALink_FollowsIt) {
  std::vector<std::string> followed;
  for (forms::Link* link : {&records().LblLink_vexacd, &records().LblLink_cdshell, &records().LblLink_Third}) {
    link->click = [&followed, link] { followed.push_back(link->name()); };
  }
  GoTo(9);
  for (const char* link : {"LblLink_vexacd", "LblLink_cdshell", "LblLink_Third"}) {
    QTest::mouseClick(&Widget(link), Qt::LeftButton, Qt::NoModifier, QPoint(20, Widget(link).height() / 2));
  }
  EXPECT_THAT(followed, ElementsAreArray({"LblLink_vexacd", "LblLink_cdshell", "LblLink_Third"}));
}

// A key that is held down repeats itself until it is released.
TEST_F(KeysTest, EnterThatIsHeldDown_MovesOnePageOnly) {
  const auto hold = [] {
    for (int repeat = 0; repeat < 5; ++repeat) {
      QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", repeat > 0);
      QApplication::sendEvent(QApplication::focusWidget(), &press);
    }
    Settle();
  };
  hold();  // on the Next button
  EXPECT_EQ(PageSeen(), 1);
  hold();  // on a check box
  EXPECT_EQ(PageSeen(), 6);
}

TEST_F(KeysTest, WholeWayWithKeysAlone) {
  FillLocations();
  host.AddFile("C:\\Discwright\\files\\vexacd\\boot\\loader.bin", "loader");
  for (const char* image : {"vexastart.img", "vexaemm.img", "vexanet.img", "vexawin.img"}) {
    host.AddFile("C:\\Discwright\\" + std::string(image), "disk");
  }
  host.AddFile("C:\\vexacd.iso", testing::DiscImage());
  PressKey(Qt::Key_Enter);  // the contents
  PressAlt('t');
  PressKey(Qt::Key_Enter);  // the tools
  PressKey(Qt::Key_Space);
  PressKey(Qt::Key_Tab);
  Write("T:");
  PressKey(Qt::Key_Enter);  // the utilities
  PressAlt('a');
  PressAlt('o');
  PressKey(Qt::Key_A, Qt::ControlModifier);
  Write("S:\\files");
  PressKey(Qt::Key_Enter);  // the ISO file
  PressAlt('l');
  PressKey(Qt::Key_Enter);  // the summary
  EXPECT_EQ(PageSeen(), 8);
  PressAlt('f');
  Settle();
  EXPECT_EQ(HeadingSeen(), "  Operation completed successfully");
  EXPECT_THAT(watch.messages, IsEmpty());
  PressAlt('f');
  EXPECT_FALSE(main().isVisible());
  EXPECT_TRUE(host.Exists("C:\\Discwright\\vexacd.ini"));
}

}  // namespace
}  // namespace discwright::desktop
