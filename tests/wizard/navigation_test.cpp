// Tests of the buttons, and of the order of the pages.
#include "wizard/navigation.h"

#include <algorithm>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "tests/wizard/wizard_fixture.h"
#include "wizard/help.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;
using testing::FakeRun;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::WizardFixture;

struct Path {
  bool win2k;
  bool win9x;
  bool advtools;
  std::vector<int> pages;
};

class PagePathTest : public WizardFixture, public ::testing::WithParamInterface<Path> {
 protected:
  PagePathTest() { Choose(GetParam().win2k, GetParam().win9x, GetParam().advtools); }
};

TEST_P(PagePathTest, NextToTheSummary_ShowsExactlyThePagesOfTheContents) {
  for (std::size_t i = 1; i < GetParam().pages.size(); ++i) {
    const int expected = GetParam().pages[i];
    EXPECT_EQ(Next(), expected);
    EXPECT_THAT(VisiblePages(), ElementsAre(expected));
    EXPECT_TRUE(main.CmdBack.enabled);
    EXPECT_EQ(main.CmdNext.visible, expected != 8);
    EXPECT_EQ(main.CmdFinish.visible, expected == 8);
  }
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_P(PagePathTest, BackFromTheSummary_ShowsTheSamePagesBackwards) {
  while (main.Step < 8) Next();
  for (std::size_t i = GetParam().pages.size() - 1; i-- > 0;) {
    const int expected = GetParam().pages[i];
    EXPECT_EQ(Back(), expected);
    EXPECT_THAT(VisiblePages(), ElementsAre(expected));
    EXPECT_EQ(main.CmdBack.enabled, expected != 0);
    EXPECT_TRUE(main.CmdNext.visible);
    EXPECT_FALSE(main.CmdFinish.visible);
  }
}

INSTANTIATE_TEST_SUITE_P(AllContents, PagePathTest,
                         ::testing::Values(Path{false, false, false, {0, 1, 6, 7, 8}},
                                           Path{false, false, true, {0, 1, 5, 6, 7, 8}},
                                           Path{false, true, false, {0, 1, 4, 6, 7, 8}},
                                           Path{false, true, true, {0, 1, 4, 5, 6, 7, 8}},
                                           Path{true, false, false, {0, 1, 2, 3, 6, 7, 8}},
                                           Path{true, false, true, {0, 1, 2, 3, 5, 6, 7, 8}},
                                           Path{true, true, false, {0, 1, 2, 3, 4, 6, 7, 8}},
                                           Path{true, true, true, {0, 1, 2, 3, 4, 5, 6, 7, 8}}));

class NavigationTest : public WizardFixture {};

TEST_F(NavigationTest, GreyedContentBox_CountsAsChosen) {
  StartOn(1);
  main.ChkGet_Win9x.value = 2;
  EXPECT_EQ(Next(), 4);
}

TEST_F(NavigationTest, Back_ValidatesAndClearsNothing) {
  StartOn(7);
  main.ChkPassProtect.value = 1;
  main.TxtPass1.text = "one";
  main.TxtPass2.text = "two";
  main.TxtISOLoc.text = "X:\\missing\\cd.iso";
  EXPECT_EQ(Back(), 6);
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(main.TxtPass1.text.get(), "one");
  EXPECT_EQ(main.TxtPass2.text.get(), "two");
}

TEST_F(NavigationTest, NextOnTheSummary_StaysThere) {
  StartOn(8);
  CmdNext_Click(context);
  EXPECT_EQ(main.Step, 8);
  EXPECT_THAT(VisiblePages(), ElementsAre(8));
}

TEST_F(NavigationTest, BackOnTheFirstPage_StaysThere) {
  CmdBack_Click(context);
  EXPECT_EQ(main.Step, 0);
  EXPECT_THAT(VisiblePages(), ElementsAre(0));
}

TEST_F(NavigationTest, NextFromTheIsoOptions_FillsTheSummary) {
  StartOn(7);
  Next();
  EXPECT_THAT(main.TxtSummery.text.get(), ::testing::StartsWith("Review you options and Settings below...\r\n"));
}

TEST_F(NavigationTest, OpenHelp_FollowsNextAndBack) {
  user.help_is_open = true;
  Next();
  Next();
  Back();
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1120",
                                           "C:\\Discwright\\vexacd_builder.chm>Down 1170",
                                           "C:\\Discwright\\vexacd_builder.chm>Down 1120"));
}

TEST_F(NavigationTest, ClosedHelp_StaysClosedOnNextBackFinishAndCancel) {
  Next();
  Back();
  StartOn(8);
  forms::Press(main.CmdFinish);
  forms::Press(main.CmdCancel);
  EXPECT_THAT(user.help_shown, IsEmpty());
}

TEST_F(NavigationTest, HelpOnEveryPage_OpensThatPagesTopic) {
  std::vector<std::string> expected;
  for (int page = 0; page < 11; ++page) {
    StartOn(page);
    forms::Press(main.CmdHelp);
    expected.push_back("C:\\Discwright\\vexacd_builder.chm>Down " + std::to_string(1110 + 10 * page));
  }
  EXPECT_EQ(user.help_shown, expected);
}

TEST_F(NavigationTest, ContextsShowHelp_IsTheWizards) {
  user.help_is_open = true;
  context.ShowHelp(9, false);
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1200"));
}

TEST_F(NavigationTest, CancelOnAPage_ShowsTheFinishPageAndNothingButFinish) {
  StartOn(3);
  user.help_is_open = true;
  forms::Press(main.CmdCancel);
  EXPECT_TRUE(main.Finished);
  EXPECT_TRUE(main.CancelCopy);
  EXPECT_THAT(VisiblePages(), ElementsAre(9));
  EXPECT_EQ(main.LblFinish.caption.get(), "   Operation canceled");
  EXPECT_FALSE(main.CmdNext.visible);
  EXPECT_TRUE(main.CmdFinish.visible);
  EXPECT_TRUE(main.CmdFinish.enabled);
  EXPECT_FALSE(main.CmdBack.enabled);
  EXPECT_FALSE(main.CmdCancel.enabled);
  // The topic of the progress page, although the finish page is in view.
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1210"));
}

TEST_F(NavigationTest, Cancel_IsTheUsersUnlessTheBuildHasFailedBefore) {
  forms::Press(main.CmdCancel);
  EXPECT_TRUE(context.cancelled_by_user);
  context.cancelled_by_user = false;
  context.failure = "The disk is full.";
  CmdCancel_Click(context);
  CloseMainWindow(context);
  EXPECT_FALSE(context.cancelled_by_user);
}

TEST_F(NavigationTest, HelpAfterCancel_OpensTheFinishPagesTopic) {
  StartOn(3);
  forms::Press(main.CmdCancel);
  forms::Press(main.CmdHelp);
  EXPECT_EQ(main.Step, 3);
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1200"));
}

TEST_F(NavigationTest, EscOnAPage_IsTheCancelButtonAndAsksNothing) {
  StartOn(3);
  forms::AskToCancel(main);
  EXPECT_THAT(VisiblePages(), ElementsAre(9));
  EXPECT_TRUE(context.cancelled_by_user);
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(NavigationTest, CrossOfTheWindow_ClosesItWithoutSaving) {
  StartOn(3);
  forms::AskToClose(main);
  EXPECT_FALSE(main.visible);
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_FALSE(main.Finished);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd.ini"));
}

TEST_F(NavigationTest, CrossAfterTheEnd_ClosesItWithoutSaving) {
  StartOn(8);
  forms::Press(main.CmdFinish);
  user.messages.clear();
  forms::AskToClose(main);
  EXPECT_FALSE(main.visible);
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd.ini"));
}

TEST_F(NavigationTest, FinishAfterCancel_SavesTheSessionAndCloses) {
  main.visible = true;
  StartOn(3);
  forms::Press(main.CmdCancel);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd.ini"));
  forms::Press(main.CmdFinish);
  EXPECT_TRUE(host.Exists("C:\\Discwright\\vexacd.ini"));
  EXPECT_FALSE(main.visible);
  EXPECT_THAT(programs.started, IsEmpty());
}

class FormLoadTest : public WizardFixture {};

TEST_F(FormLoadTest, NoSessionFile_ShowsTheWindowAsDesigned) {
  main.visible = false;
  Form_Load(context, "C:\\Discwright\\vexacd.ini");
  EXPECT_TRUE(main.visible);
  EXPECT_EQ(main.Step, 0);
  EXPECT_THAT(VisiblePages(), ElementsAre(0));
  EXPECT_FALSE(main.CmdBack.enabled);
  EXPECT_TRUE(main.CmdNext.visible);
  EXPECT_FALSE(main.CmdFinish.visible);
  EXPECT_EQ(main.TxtISOLoc.text.get(), "c:\\vexacd.iso");
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "Microsoft Windows XP Professional Edition");
}

TEST_F(FormLoadTest, SessionFileThatCannotBeRead_IsAFailureAndNotTakenForAMissingOne) {
  for (const char* call : {"CheckReadable", "ReadWholeFile"}) {
    notes = {};
    host.AddFile("C:\\Discwright\\vexacd.ini", "[MainParams]\r\n");
    host.FailOn(call, "vexacd.ini", host::ErrorClass::kNotReady, "the disk is gone", 1);
    EXPECT_EQ(Form_Load(context, "C:\\Discwright\\vexacd.ini").error, host::ErrorClass::kNotReady) << call;
    ASSERT_EQ(notes.all().size(), 1U) << call;
    EXPECT_EQ(notes.all()[0].place, "C:\\Discwright\\vexacd.ini");
  }
}

// On a system without a drive C:, the default locations of the form do not exist.
TEST_F(FormLoadTest, NoDriveC_ProposesTheHomeFolderAndNoServicePack) {
  host.home_folder = "\\home\\ann";
  Form_Load(context, "C:\\Discwright\\vexacd.ini");
  EXPECT_EQ(main.TxtISOLoc.text.get(), "\\home\\ann\\vexacd.iso");
  EXPECT_EQ(main.TxtSP_exe.text.get(), "");
}

TEST_F(FormLoadTest, NoDriveCButASession_KeepsTheLocationsOfTheSession) {
  host.home_folder = "\\home\\ann";
  host.AddFile("C:\\Discwright\\vexacd.ini",
               "[Main]\r\nISOLocation=E:\\mine.iso\r\n[Win2K_Info]\r\nSP_exe=S:\\sp.exe\r\n");
  Form_Load(context, "C:\\Discwright\\vexacd.ini");
  EXPECT_EQ(main.TxtISOLoc.text.get(), "E:\\mine.iso");
  EXPECT_EQ(main.TxtSP_exe.text.get(), "S:\\sp.exe");
}

TEST_F(FormLoadTest, SessionWithoutBootDisks_StillHasThem) {
  host.AddFile("C:\\Discwright\\vexacd.ini", "[Main]\r\nBootDisks=0\r\n");
  Form_Load(context, "C:\\Discwright\\vexacd.ini");
  EXPECT_EQ(main.ChkGet_Vexadisks.value, 1);
}

TEST_F(FormLoadTest, SessionFileOfAnEarlierRun_BringsItsChoicesBack) {
  main.TxtISOLoc.text = "E:\\mine.iso";
  main.ChkGet_Win9x.value = 1;
  forms::Press(main.CmdCancel);
  forms::Press(main.CmdFinish);
  main.TxtISOLoc.text = "";
  main.ChkGet_Win9x.value = 0;
  Form_Load(context, "C:\\Discwright\\vexacd.ini");
  EXPECT_EQ(main.TxtISOLoc.text.get(), "E:\\mine.iso");
  EXPECT_EQ(main.ChkGet_Win9x.value.get(), 1);
  EXPECT_TRUE(main.visible);
}

}  // namespace
}  // namespace discwright::wizard
