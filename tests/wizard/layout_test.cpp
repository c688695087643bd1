// Tests of the layouts. Every page and dialog is listed here once more, so that a record that moves makes a test fail.
#include "wizard/layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "forms/user_actions.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;

constexpr int kPages = 11;

class LayoutTest : public ::testing::Test {
 protected:
  // One line per row, "a | b" for two controls side by side. A frame is a line "Frame:" or, with the check box that
  // heads it, "Frame <box>:"; its rows are indented.
  static std::vector<std::string> Lines(const Layout& layout) {
    std::vector<std::string> lines;
    for (const Group& group : layout.groups) {
      if (group.frame != nullptr) lines.push_back(Title(group) + ":");
      for (const Row& row : group.rows) lines.push_back((group.frame != nullptr ? "  " : "") + RowText(row));
    }
    return lines;
  }

  std::vector<std::string> LinesOfPage(int page) { return Lines(LayoutOfPage(windows, page)); }

  // What a user sees at one time: a page with the buttons below it, or a dialog.
  std::vector<std::vector<const forms::Control*>> Views() {
    std::vector<std::vector<const forms::Control*>> views;
    for (int page = 0; page < kPages; ++page) {
      views.push_back(Shown(LayoutOfPage(windows, page)));
      const std::vector<const forms::Control*> buttons = Shown(LayoutOfButtons(windows));
      views.back().insert(views.back().end(), buttons.begin(), buttons.end());
    }
    views.push_back(Shown(LayoutOfDialog(windows.win2k_info)));
    views.push_back(Shown(LayoutOfDialog(windows.win9x_info)));
    return views;
  }

  forms::Windows windows;
  forms::FrmDiscwright& main = windows.main;

 private:
  static std::string Title(const Group& group) {
    return group.frame->name() + (group.head == nullptr ? "" : " <" + group.head->name() + ">");
  }

  static std::string RowText(const Row& row) {
    std::string text;
    for (const forms::Control* control : row.controls) text += (text.empty() ? "" : " | ") + control->name();
    return text;
  }

  // The heading is included, because it is the label of some fields.
  static std::vector<const forms::Control*> Shown(const Layout& layout) {
    std::vector<const forms::Control*> shown;
    if (layout.heading != nullptr) shown.push_back(layout.heading);
    for (const forms::Control* control : ControlsOf(layout)) shown.push_back(control);
    return shown;
  }
};

TEST_F(LayoutTest, Welcome_IsThreeLines) {
  EXPECT_THAT(LinesOfPage(0), ElementsAre("LblWelcome1", "LblWelcome2", "LblWelcome3"));
}

TEST_F(LayoutTest, Contents_AreOneBoxPerRow) {
  EXPECT_THAT(LinesOfPage(1), ElementsAre("ChkGet_Vexadisks", "ChkGet_Vexanetplus", "ChkSelectDrivers", "ChkGet_Win2k",
                                          "ChkGet_Win9x", "ChkGet_Advtools"));
}

TEST_F(LayoutTest, Win2KSource_HasFramesForServicePackAndHotfixes) {
  EXPECT_THAT(LinesOfPage(2), ElementsAre("Lbl_i386_Loc", "Txt_i386_Loc | CmdBrw_i386_loc", "LblWin2KOSVer",
                                          "ChkSlipstream", "FraSP_Loc:", "  LblSP", "  TxtSP_exe | CmdBrw_spexe",  //
                                          "ChkHotfix", "FraHotfix:", "  Cmd_Sel_hotfixes | LblHotNum"));
}

TEST_F(LayoutTest, Win2KOptions_AreTwoFrames) {
  EXPECT_THAT(LinesOfPage(3),
              ElementsAre("FraMisc:", "  ChkDelTree_Lang", "  LblDelTree_Lang",  //
                          "FraWin2KInfo:", "  CmdSetWin2KInfo", "  ChkWin2KInfo_Assis", "  ChkWin2KInfo_Unattend"));
}

TEST_F(LayoutTest, Win9x_HasAFrameForTheAnswers) {
  EXPECT_THAT(LinesOfPage(4),
              ElementsAre("LblWin9x_Loc", "TxtWin9x_Loc | CmdBrw_Win9xLoc",  //
                          "FraWin9xInfo:", "  CmdSetWin9xInfo", "  ChkWin9xInfo_Assis", "  ChkWin9xInfo_MSBatch"));
}

TEST_F(LayoutTest, AdvancedTools_AreABoxAndALocationEach) {
  EXPECT_THAT(LinesOfPage(5), ElementsAre("ChkERDC", "LblERDC", "TxtERDC | CmdBrw_ERDC",  //
                                          "ChkBCon", "LblBCon", "TxtBCon | CmdBrw_BCon"));
}

TEST_F(LayoutTest, Utilities_AreTwoFramesHeadedByTheirBoxes) {
  EXPECT_THAT(LinesOfPage(6), ElementsAre("FraUtils <ChkVexaUtils>:", "  LblUtils", "  TxtUtils_Loc",
                                          "  CmdExp_Utils | CmdBrw_Utils",  //
                                          "FraAddFiles <ChkAddFiles>:", "  LblAddFiles", "  TxtAddFiles_Loc",
                                          "  CmdExp_AddFiles | CmdBrw_AddFiles"));
}

TEST_F(LayoutTest, IsoOptions_HaveAFrameForTheFile) {
  EXPECT_THAT(LinesOfPage(7), ElementsAre("ChkPassProtect", "LblPass1 | TxtPass1", "LblPass2 | TxtPass2",  //
                                          "FraISO:", "  LblISOLoc", "  TxtISOLoc | CmdBrw_ISOfile", "  ChkOptimizeISO",
                                          "  ChkCleanSession"));
}

TEST_F(LayoutTest, Summary_IsItsText) { EXPECT_THAT(LinesOfPage(8), ElementsAre("TxtSummery")); }

TEST_F(LayoutTest, Finish_IsThreeLinksUnderTheirLines) {
  EXPECT_THAT(LinesOfPage(9), ElementsAre("LblAbort", "LblVisit_vexacd", "LblLink_vexacd", "LblVisit_cdshell",
                                          "LblLink_cdshell", "LblVisit_Third", "LblLink_Third"));
}

TEST_F(LayoutTest, Progress_IsFiveLinesWithTheirMarks) {
  EXPECT_THAT(LinesOfPage(10), ElementsAre("LblMsg1 | LblRight1", "LblMsg2 | LblRight2", "LblMsg3 | LblRight3",
                                           "LblMsg4 | LblRight4", "LblMsg5 | LblRight5", "LblSub_Step", "BarSub_Step"));
}

TEST_F(LayoutTest, Buttons_AreOneRow) {
  EXPECT_THAT(Lines(LayoutOfButtons(windows)), ElementsAre("CmdHelp | CmdCancel | CmdBack | CmdNext | CmdFinish"));
}

TEST_F(LayoutTest, Win2KInfo_IsAFormOfLabelledFields) {
  EXPECT_THAT(Lines(LayoutOfDialog(windows.win2k_info)),
              ElementsAre("LblTemplate", "TxtTemplate | CmdBrwUnattend", "LblOwner | TxtOwner", "LblOrg | TxtOrg",
                          "LblPCName | TxtPCName", "OptJoinWorkgroup | OptJoinDomain", "LblJoinName | TxtWorkgroup",
                          "CmdOK | CmdCancel"));
}

TEST_F(LayoutTest, Win9xInfo_IsAFormOfLabelledFields) {
  EXPECT_THAT(Lines(LayoutOfDialog(windows.win9x_info)),
              ElementsAre("LblOwner | TxtOwner", "LblOrg | TxtOrg", "LblPCName | TxtPCName",
                          "LblWorkgroup | TxtWorkgroup", "LblOSType | TxtOSType", "CmdOK | CmdCancel"));
}

TEST_F(LayoutTest, AllLayouts_AreThePagesTheButtonsAndTheDialogs) {
  const std::vector<Layout> layouts = AllLayouts(windows);
  ASSERT_EQ(layouts.size(), 14U);
  for (int page = 0; page < kPages; ++page) {
    EXPECT_EQ(layouts[page].page, page);
    EXPECT_EQ(layouts[page].form, &main);
    EXPECT_EQ(Lines(layouts[page]), LinesOfPage(page));
  }
  for (std::size_t i = kPages; i < layouts.size(); ++i) EXPECT_EQ(layouts[i].page, -1);
  EXPECT_EQ(Lines(layouts[11]), Lines(LayoutOfButtons(windows)));
  EXPECT_EQ(layouts[11].form, &main);
  EXPECT_EQ(layouts[12].form, &windows.win2k_info);
  EXPECT_EQ(layouts[13].form, &windows.win9x_info);
}

TEST_F(LayoutTest, Headings_AreThoseOfThePagesInOrder) {
  std::vector<std::string> headings;
  for (const Layout& layout : AllLayouts(windows)) {
    headings.push_back(layout.heading == nullptr ? "none" : layout.heading->caption.get());
  }
  EXPECT_THAT(headings, ElementsAre("  Welcome to The Vexa Discwright v2.0", "  Select the Contents of the CD",
                                    "  Add Windows 2000/XP/2003 Setup (1)", "  Add Windows 2000/XP/2003 Setup (2)",
                                    "  Add Windows 98/98SE/Me Setup", "  Advanced Tools",
                                    "  Vexa Utilities / Additional Files", "  Specify ISO File Options",
                                    "  Ready to create ISO file", "  Operation completed successfully",
                                    "  Please Wait ... Creating the ISO file", "none", "none", "none"));
}

TEST_F(LayoutTest, FirstFocus_IsTheFirstThatTakesInputAndIsNoLink) {
  std::vector<std::string> names;
  for (const Layout& layout : AllLayouts(windows)) {
    names.push_back(layout.first_focus == nullptr ? "none" : layout.first_focus->name());
  }
  EXPECT_THAT(names, ElementsAre("none", "ChkGet_Vexadisks", "Txt_i386_Loc", "ChkDelTree_Lang", "TxtWin9x_Loc",
                                 "ChkERDC", "ChkVexaUtils", "ChkPassProtect", "none", "none", "none",  // the pages
                                 "CmdHelp", "TxtTemplate", "TxtOwner"));
}

// Frames are drawn around rows, headings above them; the rest is no part of any page.
TEST_F(LayoutTest, EveryControl_StandsOnExactlyOneLayout) {
  std::map<const forms::Control*, int> seen;
  std::map<const forms::Control*, int> frames;
  for (const Layout& layout : AllLayouts(windows)) {
    for (const forms::Control* control : ControlsOf(layout)) ++seen[control];
    for (const Group& group : layout.groups) {
      if (group.frame != nullptr) ++frames[group.frame];
    }
    if (layout.heading != nullptr) ++seen[layout.heading];
  }
  std::vector<std::string> nowhere;
  std::vector<std::string> drawn_around;
  for (forms::Form* form : windows.All()) {
    for (const forms::Control* control : form->controls()) {
      EXPECT_LE(seen[control] + frames[control], 1) << control->name();
      if (frames[control] == 1) drawn_around.push_back(control->name());
      if (seen[control] + frames[control] == 0) nowhere.push_back(control->name());
    }
  }
  EXPECT_THAT(drawn_around, ElementsAre("FraSP_Loc", "FraHotfix", "FraMisc", "FraWin2KInfo", "FraWin9xInfo", "FraUtils",
                                        "FraAddFiles", "FraISO"));
  std::vector<std::string> expected{"PicSideImage", "DlgOpen"};
  expected.insert(expected.end(), kPages, "FraMain");
  expected.emplace_back("DlgOpen");
  EXPECT_EQ(nowhere, expected);
}

TEST_F(LayoutTest, EveryRow_HasSomethingInIt) {
  for (const Layout& layout : AllLayouts(windows)) {
    for (const Group& group : layout.groups) {
      EXPECT_FALSE(group.rows.empty());
      for (const Row& row : group.rows) EXPECT_FALSE(row.controls.empty());
    }
  }
}

TEST_F(LayoutTest, TabOrder_IsTheOrderOfTheRecords) {
  for (const Layout& layout : AllLayouts(windows)) {
    const std::vector<forms::Control*> here = ControlsOf(layout);
    std::vector<forms::Control*> declared;
    for (forms::Control* control : layout.form->controls()) {
      if (std::find(here.begin(), here.end(), control) != here.end()) declared.push_back(control);
    }
    EXPECT_EQ(here, declared);
  }
}

// A user interface gives the access key of a label to the next control in the tab order.
TEST_F(LayoutTest, LabelOfAFieldOrLink_StandsRightBeforeIt) {
  int fields = 0;
  for (const auto& view : Views()) {
    for (std::size_t i = 0; i < view.size(); ++i) {
      const auto* field = dynamic_cast<const forms::TextBox*>(view[i]);
      const auto* link = dynamic_cast<const forms::Link*>(view[i]);
      if (field == nullptr && link == nullptr) continue;
      ++fields;
      ASSERT_GT(i, 0U) << view[i]->name();
      const forms::Control* label = field != nullptr ? field->label : static_cast<forms::Captioned*>(link->label);
      EXPECT_EQ(view[i - 1], label) << view[i]->name();
    }
  }
  EXPECT_EQ(fields, 10 + 1 + 3 + 5 + 5);  // the pages' locations and passwords, the summary, the links, the dialogs
}

TEST_F(LayoutTest, AccessKeys_AreUniqueInWhatIsSeenAtATime) {
  for (const auto& view : Views()) {
    std::map<int, std::string> owners;
    for (const forms::Control* control : view) {
      // The key of a field or link is its label's.
      const auto* captioned = dynamic_cast<const forms::Captioned*>(control);
      if (captioned == nullptr || dynamic_cast<const forms::Link*>(control) != nullptr) continue;
      const char key = forms::AccessKey(*control);
      if (key == 0) continue;
      const auto [owner, is_new] = owners.emplace(std::tolower(key), control->name());
      EXPECT_TRUE(is_new) << key << " is the key of " << owner->second << " and " << control->name();
    }
  }
}

TEST_F(LayoutTest, AccessKey_IsALetterOfTheTextThatShowsIt) {
  for (const auto& view : Views()) {
    for (const forms::Control* control : view) {
      const auto* captioned = dynamic_cast<const forms::Captioned*>(control);
      if (captioned == nullptr || dynamic_cast<const forms::Link*>(control) != nullptr) continue;
      const char key = forms::AccessKey(*control);
      if (key == 0) continue;
      EXPECT_TRUE(std::isalpha(static_cast<unsigned char>(key))) << control->name();
      EXPECT_NE(forms::ShownText(*captioned).find(key), std::string::npos) << control->name() << ' ' << key;
    }
  }
}

TEST_F(LayoutTest, EveryControlThatTakesInput_HasAnAccessKey) {
  std::set<std::string> without;
  for (const auto& view : Views()) {
    for (const forms::Control* control : view) {
      if (!forms::TakesInput(*control) || forms::AccessKey(*control) != 0) continue;
      without.insert(control->form().name() + "." + control->name());
    }
  }
  // Enter and Esc press these.
  EXPECT_THAT(without, ElementsAre("FrmWin2KInfo.CmdCancel", "FrmWin2KInfo.CmdOK", "FrmWin9xInfo.CmdCancel",
                                   "FrmWin9xInfo.CmdOK"));
}

// An access key of a label that names no field would do nothing.
TEST_F(LayoutTest, LabelWithAnAccessKey_NamesAFieldOrLink) {
  for (const auto& view : Views()) {
    for (std::size_t i = 0; i < view.size(); ++i) {
      if (dynamic_cast<const forms::Label*>(view[i]) == nullptr || view[i]->placing().key == 0) continue;
      ASSERT_LT(i + 1, view.size());
      const auto* field = dynamic_cast<const forms::TextBox*>(view[i + 1]);
      const auto* link = dynamic_cast<const forms::Link*>(view[i + 1]);
      EXPECT_TRUE((field != nullptr && field->label == view[i]) || (link != nullptr && link->label == view[i]))
          << view[i]->name();
    }
  }
}

TEST_F(LayoutTest, EnterAndEsc_HaveTheirButtons) {
  EXPECT_THAT(main.default_buttons, ElementsAre(&main.CmdNext, &main.CmdFinish));
  EXPECT_EQ(main.cancel_button, &main.CmdCancel);
  EXPECT_THAT(windows.win2k_info.default_buttons, ElementsAre(&windows.win2k_info.CmdOK));
  EXPECT_EQ(windows.win2k_info.cancel_button, &windows.win2k_info.CmdCancel);
  EXPECT_THAT(windows.win9x_info.default_buttons, ElementsAre(&windows.win9x_info.CmdOK));
  EXPECT_EQ(windows.win9x_info.cancel_button, &windows.win9x_info.CmdCancel);
}

TEST_F(LayoutTest, Pages_DoNotDependOnWhatIsInView) {
  const std::vector<std::string> before = LinesOfPage(6);
  main.FraMain[0].visible = false;
  main.FraMain[6].visible = true;
  main.LblAbort.visible = true;
  main.ChkVexaUtils.value = 1;
  EXPECT_EQ(LinesOfPage(6), before);
}

}  // namespace
}  // namespace discwright::wizard
