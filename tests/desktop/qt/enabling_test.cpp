// Tests of the check boxes as the user sees them: what a click enables and disables, and how each value looks.
#include <QCheckBox>
#include <QPushButton>

#include "tests/desktop/qt/window_fixture.h"

namespace discwright::desktop {
namespace {

using ::testing::Values;

struct Enabling {
  const char* box;
  int page;
  std::vector<std::string> fields;
};

class EnablingTest : public testing::WindowFixture, public ::testing::WithParamInterface<Enabling> {
 protected:
  void ExpectFields(bool enabled) {
    for (const std::string& field : GetParam().fields) {
      EXPECT_EQ(Widget(field).isEnabled(), enabled) << field;
      EXPECT_TRUE(IsShown(field)) << field;
    }
  }
};

TEST_P(EnablingTest, Box_EnablesItsFieldsByClickAndBySpace) {
  GoTo(GetParam().page);
  ExpectFields(false);
  Click(GetParam().box);
  ExpectFields(true);
  Click(GetParam().box);
  ExpectFields(false);
  EXPECT_EQ(Focus(), GetParam().box);
  PressKey(Qt::Key_Space);
  ExpectFields(true);
  EXPECT_TRUE(The<QCheckBox>(GetParam().box).isChecked());
}

INSTANTIATE_TEST_SUITE_P(
    AllBoxes, EnablingTest,
    Values(Enabling{"ChkVexaUtils", 6, {"LblUtils", "TxtUtils_Loc", "CmdExp_Utils", "CmdBrw_Utils"}},
           Enabling{"ChkAddFiles", 6, {"LblAddFiles", "TxtAddFiles_Loc", "CmdExp_AddFiles", "CmdBrw_AddFiles"}},
           Enabling{"ChkPassProtect", 7, {"LblPass1", "TxtPass1", "LblPass2", "TxtPass2"}},
           Enabling{"ChkSlipstream", 2, {"LblSP", "TxtSP_exe", "CmdBrw_spexe"}},
           Enabling{"ChkERDC", 5, {"LblERDC", "TxtERDC", "CmdBrw_ERDC"}},
           Enabling{"ChkBCon", 5, {"LblBCon", "TxtBCon", "CmdBrw_BCon"}}),
    [](const auto& one) { return std::string(one.param.box); });

struct Pair {
  const char* first;
  const char* second;
  const char* button;
  int page;
};

class PairTest : public testing::WindowFixture, public ::testing::WithParamInterface<Pair> {};

TEST_P(PairTest, Button_IsEnabledWhileOneOfTheBoxesIsChecked) {
  const auto [first, second, button, page] = GetParam();
  GoTo(page);
  EXPECT_FALSE(IsUsable(button));
  for (const auto& [box, enabled] : {std::pair(first, true), std::pair(second, true), std::pair(first, true),
                                     std::pair(second, false), std::pair(second, true), std::pair(second, false)}) {
    Click(box);
    EXPECT_EQ(IsUsable(button), enabled) << box;
  }
}

INSTANTIATE_TEST_SUITE_P(BothPages, PairTest,
                         Values(Pair{"ChkWin2KInfo_Assis", "ChkWin2KInfo_Unattend", "CmdSetWin2KInfo", 3},
                                Pair{"ChkWin9xInfo_Assis", "ChkWin9xInfo_MSBatch", "CmdSetWin9xInfo", 4}),
                         [](const auto& one) { return std::string(one.param.button); });

class CheckBoxesTest : public testing::WindowFixture {};

TEST_F(CheckBoxesTest, BootDisks_StayCheckedWhateverTheUserDoes) {
  GoTo(1);
  EXPECT_TRUE(The<QCheckBox>("ChkGet_Vexadisks").isChecked());
  Click("ChkGet_Vexadisks");
  EXPECT_TRUE(The<QCheckBox>("ChkGet_Vexadisks").isChecked());
  PressKey(Qt::Key_Space);
  EXPECT_TRUE(The<QCheckBox>("ChkGet_Vexadisks").isChecked());
  PressAlt('v');
  EXPECT_TRUE(The<QCheckBox>("ChkGet_Vexadisks").isChecked());
  EXPECT_TRUE(records().ChkGet_Vexadisks.checked());
}

TEST_F(CheckBoxesTest, GreyedBox_IsShownPartiallyCheckedUntilItIsClicked) {
  records().ChkERDC.value = 2;
  GoTo(5);
  EXPECT_EQ(The<QCheckBox>("ChkERDC").checkState(), Qt::PartiallyChecked);
  EXPECT_FALSE(Widget("TxtERDC").isEnabled());
  Click("ChkERDC");
  EXPECT_EQ(The<QCheckBox>("ChkERDC").checkState(), Qt::Checked);
  EXPECT_TRUE(Widget("TxtERDC").isEnabled());
  Click("ChkERDC");
  EXPECT_EQ(The<QCheckBox>("ChkERDC").checkState(), Qt::Unchecked);
  Click("ChkERDC");
  EXPECT_EQ(The<QCheckBox>("ChkERDC").checkState(), Qt::Checked);
}

TEST_F(CheckBoxesTest, Hotfixes_AreAPlaceholder) {
  GoTo(2);
  Click("ChkHotfix");
  Click("Cmd_Sel_hotfixes");
  EXPECT_EQ(ShownText("LblHotNum"), "Hotfixes : 0");
  EXPECT_TRUE(watch.messages.empty());
  EXPECT_EQ(PageSeen(), 2);
}

TEST_F(CheckBoxesTest, DisabledFields_KeepTheirText) {
  GoTo(7);
  Click("ChkPassProtect");
  WriteInto("TxtPass1", "secret");
  Click("ChkPassProtect");
  EXPECT_EQ(FieldText("TxtPass1"), "secret");
  Click("TxtPass1");
  Write("more");
  EXPECT_EQ(FieldText("TxtPass1"), "secret");
}

}  // namespace
}  // namespace discwright::desktop
