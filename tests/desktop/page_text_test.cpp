// Tests of the pages and dialogs as text.
#include "desktop/console/page_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/support/fake_host.h"
#include "wizard/rules.h"

namespace discwright::desktop {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class PageTexts : public ::testing::Test {
 protected:
  std::string LineOf(const std::string& page, const std::string& control) {
    std::istringstream text(PageText(windows, page));
    for (std::string line; std::getline(text, line);) {
      if (line.starts_with("  " + control + " ")) return line;
    }
    return "<missing>";
  }

  testing::FakeHost host;
  forms::Windows windows;
  forms::FrmDiscwright& main = windows.main;
  forms::Subscription rules = wizard::KeepRules(windows);
};

TEST_F(PageTexts, PageOfTheTools_IsWordForWord) {
  main.ChkGet_Advtools.value = 1;
  main.ChkERDC.value = 1;
  main.TxtERDC.text = "E:\\erd cd";
  EXPECT_EQ(
      PageText(windows, "5"),
      "Page 5: Advanced Tools  (only with ChkGet_Advtools=1)\n"
      "  ChkERDC                check box  yes  ERD Commander 2002/2003 = 1  [Alt+E]\n"
      "  LblERDC                label           Specify the location of your ERD Commander CD :\n"
      "  TxtERDC                text box   yes  Specify the location of your ERD Commander CD : = \"E:\\erd cd\"  "
      "[Alt+S]\n"
      "  CmdBrw_ERDC            button     yes  Browse ...  [Alt+R]\n"
      "  ChkBCon                check box  yes  O&O BlueCon XXL Pro = 0  [Alt+O]\n"
      "  LblBCon                label           Specify the location of your BlueCon CD :\n"
      "  TxtBCon                text box   no   Specify the location of your BlueCon CD : = \"\"  [Alt+L]  (needs "
      "ChkBCon=1)\n"
      "  CmdBrw_BCon            button     no   Browse ...  [Alt+W]  (needs ChkBCon=1)\n");
}

TEST_F(PageTexts, DialogOfWindows9x_IsWordForWord) {
  EXPECT_EQ(PageText(windows, "frmwin9xinfo"),
            "FrmWin9xInfo: Windows 9x Installation Info  (needs ChkGet_Win9x=1, ChkWin9xInfo_Assis=1 or "
            "ChkWin9xInfo_MSBatch=1)\n"
            "  LblOwner               label           Owner Name :\n"
            "  TxtOwner               text box   no   Owner Name : = \"VexaUser\"  [Alt+O]\n"
            "  LblOrg                 label           Organization :\n"
            "  TxtOrg                 text box   no   Organization : = \"KORVANE LTD.\"  [Alt+G]\n"
            "  LblPCName              label           Computer Name :\n"
            "  TxtPCName              text box   no   Computer Name : = \"\"  [Alt+C]\n"
            "  LblWorkgroup           label           Workgroup :\n"
            "  TxtWorkgroup           text box   no   Workgroup : = \"KORVANE_LTD\"  [Alt+W]\n"
            "  LblOSType              label           Optimized for :\n"
            "  TxtOSType              text box   no   Optimized for : = \"Microsoft Windows 98\"  [Alt+P]\n"
            "  CmdOK                  button     no   OK\n"
            "  CmdCancel              button     no   Cancel\n");
}

TEST_F(PageTexts, PageWithGroups_NamesThemWhereTheyBegin) {
  const std::string text = PageText(windows, "3");
  EXPECT_THAT(text, ::testing::StartsWith("Page 3: Add Windows 2000/XP/2003 Setup (2)  (only with ChkGet_Win2k=1)\n"
                                          "  -- Miscellaneous Options : --\n"
                                          "  ChkDelTree_Lang        check box  no "));
  EXPECT_THAT(text, HasSubstr("\n  -- Customize Installation Info : --\n  CmdSetWin2KInfo "));
}

TEST_F(PageTexts, ControlThatNeedsSeveralBoxes_NamesThemUntilTheyAreChecked) {
  main.ChkGet_Win2k.value = 1;
  EXPECT_THAT(LineOf("3", "CmdSetWin2KInfo"),
              ::testing::EndsWith("(needs ChkWin2KInfo_Assis=1 or ChkWin2KInfo_Unattend=1)"));
  EXPECT_THAT(PageText(windows, "FrmWin2KInfo"), HasSubstr(" option     no   Join Workgroup : = True  [Alt+W]\n"));
  main.ChkWin2KInfo_Assis.value = 1;
  EXPECT_THAT(LineOf("3", "CmdSetWin2KInfo"), Not(HasSubstr("needs")));
  EXPECT_THAT(PageText(windows, "FrmWin2KInfo"),
              ::testing::StartsWith("FrmWin2KInfo: Windows 2K/XP/2003 Installation Info\n"));
  EXPECT_THAT(PageText(windows, "FrmWin2KInfo"), HasSubstr(" option     yes  Join Workgroup : = True  [Alt+W]\n"));
}

TEST_F(PageTexts, Password_IsHiddenUnlessItIsEmpty) {
  EXPECT_THAT(LineOf("7", "TxtPass1"), HasSubstr("Password = \"\"  [Alt+A]"));
  main.TxtPass1.text = "top-secret";
  EXPECT_THAT(LineOf("7", "TxtPass1"), HasSubstr("Password = (hidden)  [Alt+A]"));
  EXPECT_THAT(PageText(windows, ""), Not(HasSubstr("top-secret")));
}

TEST_F(PageTexts, PathOfTheCore_IsShownAsTheSystemSpellsIt) {
  host.shows_slashes = true;
  main.TxtISOLoc.text = "\\home\\Ann\\cd.iso";
  EXPECT_THAT(LineOf("7", "TxtISOLoc"), HasSubstr(" = \"/home/Ann/cd.iso\""));
  windows.win9x_info.TxtOwner.text = "Ann\\Bob";
  EXPECT_THAT(LineOf("FrmWin9xInfo", "TxtOwner"), HasSubstr(" = \"Ann\\Bob\""));
}

TEST_F(PageTexts, AccessKeyInTheCaption_IsShownBesideItAndNotInIt) {
  const std::string text = PageText(windows, "");
  EXPECT_THAT(text, HasSubstr("\nBelow every page\n  CmdHelp                button     yes  Help  [Alt+H]\n"));
  EXPECT_THAT(text, HasSubstr("  CmdBack                button     "));
  EXPECT_THAT(text, HasSubstr("  < Back  [Alt+B]\n"));
}

TEST_F(PageTexts, ControlWithNothingToShow_EndsItsLineWithItsKind) {
  EXPECT_THAT(PageText(windows, "10"), HasSubstr("\n  LblRight1              label\n"));
  EXPECT_THAT(PageText(windows, "10"), ::testing::EndsWith("\n  BarSub_Step            bar\n"));
}

TEST_F(PageTexts, UnknownPage_IsEmpty) {
  for (const char* page : {"11", "-1", "05", "x", "FrmDiscwright", "Below every page", " 5"}) {
    EXPECT_EQ(PageText(windows, page), "") << page;
  }
}

TEST_F(PageTexts, AllPages_AreEachPageAfterTheOtherWithABlankLineBetween) {
  std::string expected = PageText(windows, "0");
  for (int page = 1; page <= 10; ++page) expected += "\n" + PageText(windows, std::to_string(page));
  const std::string all = PageText(windows, "");
  ASSERT_THAT(all, ::testing::StartsWith(expected + "\nBelow every page\n"));
  EXPECT_THAT(
      all, ::testing::EndsWith("\n\n" + PageText(windows, "FrmWin2KInfo") + "\n" + PageText(windows, "FrmWin9xInfo")));
}

// Headings and frames are titles in the text. The side picture and the file dialogs are on no page.
TEST_F(PageTexts, EveryControl_StandsThereOnce) {
  const std::string all = PageText(windows, "");
  for (forms::Form* form : windows.All()) {
    const std::string text =
        form == &main ? all.substr(0, all.find("\nFrmWin2KInfo: ")) : PageText(windows, form->name());
    for (const forms::Control* control : form->controls()) {
      const auto* label = dynamic_cast<const forms::Label*>(control);
      const bool is_line = !(label != nullptr && label->heading) &&
                           dynamic_cast<const forms::Frame*>(control) == nullptr &&
                           dynamic_cast<const forms::Picture*>(control) == nullptr &&
                           dynamic_cast<const forms::FileDialog*>(control) == nullptr;
      std::size_t count = 0;
      const std::string begin = "\n  " + control->name() + " ";
      for (std::size_t at = text.find(begin); at != text.npos; at = text.find(begin, at + 1)) ++count;
      EXPECT_EQ(count, is_line ? 1U : 0U) << form->name() << "." << control->name();
      if (label != nullptr && label->heading) {
        EXPECT_THAT(text, HasSubstr(": " + label->caption.get().substr(label->caption.get().find_first_not_of(' '))));
      }
    }
  }
}

}  // namespace
}  // namespace discwright::desktop
