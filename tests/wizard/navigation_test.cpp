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

// What the window looks like at the first moment of the build at which the user could act.
struct Moment {
  std::vector<int> pages;
  int step = 0;
  bool back_enabled = false;
  bool finished = false;
};

class FinishTest : public WizardFixture {
 protected:
  FinishTest() {
    host.AddFile("C:\\Discwright\\files\\vexacd\\boot\\loader.bin", "loader");
    // What the programs of the build leave behind: three disk images and the CD's.
    for (const char* image : {"vexastart.img", "vexaemm.img", "vexanet.img"}) {
      host.AddFile("C:\\Discwright\\" + std::string(image), "disk");
    }
    host.AddFile("C:\\vexacd.iso", "image");
    main.visible = true;
    main.CmdNext.visible = false;
    main.CmdFinish.visible = true;
    StartOn(8);
    programs.run = [this](const std::string&) {
      if (!seen) seen = Moment{VisiblePages(), main.Step, main.CmdBack.enabled, main.Finished};
      return FakeRun{};
    };
  }

  std::optional<Moment> seen;
};

TEST_F(FinishTest, FirstPress_BuildsOnTheProgressPage) {
  forms::Press(main.CmdFinish);
  ASSERT_TRUE(seen.has_value());
  EXPECT_THAT(seen->pages, ElementsAre(10));
  EXPECT_EQ(seen->step, 10);
  EXPECT_FALSE(seen->back_enabled);
  EXPECT_FALSE(seen->finished);
}

TEST_F(FinishTest, FirstPress_EnablesFinishUntilTheBuildDisablesIt) {
  std::vector<bool> enabled;
  Listen(main.CmdFinish, [&](forms::Control& control, forms::Facet facet, forms::By) {
    if (facet == forms::Facet::kEnabled) enabled.push_back(control.enabled);
  });
  main.CmdFinish.enabled = false;
  CmdFinish_Click(context);
  EXPECT_THAT(enabled, ElementsAre(false, true, false, true));
}

TEST_F(FinishTest, BuildHasEnded_ShowsTheFinishPage) {
  forms::Press(main.CmdFinish);
  EXPECT_TRUE(main.Finished);
  EXPECT_FALSE(main.CancelCopy);
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_THAT(VisiblePages(), ElementsAre(9));
  EXPECT_EQ(main.LblFinish.caption.get(), "  Operation completed successfully");
  EXPECT_TRUE(main.CmdFinish.enabled);
  EXPECT_TRUE(main.visible);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd.ini"));
}

TEST_F(FinishTest, BuildHasEnded_ReportsItsResultBeforeTheFinishPageIsShown) {
  Listen(main.FraMain[9], [this](forms::Control&, forms::Facet, forms::By) { EXPECT_TRUE(main.TxtReport.visible); });
  forms::Press(main.CmdFinish);
  EXPECT_EQ(main.LblResult.caption.get(), "The image was not made.");
  EXPECT_THAT(main.TxtReport.text.get(), HasSubstr("The mastering did not say that the image is complete."));
}

TEST_F(FinishTest, CancelledBuild_ReportsItWhenItHasReturned) {
  user.on_do_events = [this] {
    if (programs.started.empty() || main.Finished) return;
    forms::Press(main.CmdCancel);
    EXPECT_FALSE(main.LblResult.visible);
  };
  forms::Press(main.CmdFinish);
  EXPECT_TRUE(main.LblResult.visible);
  EXPECT_EQ(main.LblResult.caption.get(), "You have cancelled the build.");
}

TEST_F(FinishTest, OpenHelp_MovesToTheProgressAndThenToTheFinishTopic) {
  user.help_is_open = true;
  forms::Press(main.CmdFinish);
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1210",
                                           "C:\\Discwright\\vexacd_builder.chm>Down 1200"));
}

TEST_F(FinishTest, HelpOnTheFinishPage_OpensItsTopic) {
  forms::Press(main.CmdFinish);
  user.help_shown.clear();
  forms::Press(main.CmdHelp);
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1200"));
}

TEST_F(FinishTest, CancelDuringTheBuild_StopsItAndEndsOnTheFinishPage) {
  user.help_is_open = true;
  user.on_do_events = [this] {
    if (!programs.started.empty() && !main.Finished) forms::Press(main.CmdCancel);
  };
  forms::Press(main.CmdFinish);
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(programs.started.size(), 3U);  // the running step makes all its disks; the mastering is not started
  EXPECT_THAT(VisiblePages(), ElementsAre(9));
  EXPECT_EQ(main.LblFinish.caption.get(), "   Operation canceled");
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1210",
                                           "C:\\Discwright\\vexacd_builder.chm>Down 1210",
                                           "C:\\Discwright\\vexacd_builder.chm>Down 1200"));
}

TEST_F(FinishTest, HelpOfTheCancelledBuild_IsTheFinishPagesWhileItWindsDown) {
  user.on_do_events = [this] {
    if (programs.started.empty() || main.Finished) return;
    forms::Press(main.CmdCancel);
    forms::Press(main.CmdHelp);
  };
  forms::Press(main.CmdFinish);
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1200"));
}

TEST_F(FinishTest, CrossDuringTheBuild_CancelsItAndClosesWhenItHasReturned) {
  bool was_open_in_the_build = false;
  user.on_do_events = [this, &was_open_in_the_build] {
    if (programs.started.empty() || main.Finished) return;
    forms::AskToClose(main);
    was_open_in_the_build = main.visible;
  };
  forms::Press(main.CmdFinish);
  EXPECT_TRUE(was_open_in_the_build);
  EXPECT_FALSE(main.visible);
  EXPECT_EQ(context.result.end, steps::BuildEnd::kCancelled);
  EXPECT_EQ(programs.end_all_calls, 0);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd.ini"));
}

TEST_F(FinishTest, CrossDuringTheMastering_EndsItsPrograms) {
  user.on_do_events = [this] {
    if (main.MKISOFSRunning && !main.Finished) forms::AskToClose(main);
  };
  forms::Press(main.CmdFinish);
  EXPECT_EQ(programs.end_all_calls, 1);
  EXPECT_EQ(context.result.end, steps::BuildEnd::kCancelled);
  EXPECT_FALSE(main.visible);
}

TEST_F(FinishTest, FinishOfACancelledBuild_SavesAndClosesBeforeItHasReturned) {
  user.on_do_events = [this] {
    if (programs.started.empty() || main.Finished) return;
    forms::Press(main.CmdCancel);
    forms::Press(main.CmdFinish);
  };
  forms::Press(main.CmdFinish);
  EXPECT_TRUE(host.Exists("C:\\Discwright\\vexacd.ini"));
  EXPECT_FALSE(main.visible);
}

TEST_F(FinishTest, PressedAgainBeforeTheBuildDisablesIt_StartsNoSecondBuild) {
  int presses = 0;
  user.on_do_events = [this, &presses] {
    if (main.Finished || !main.CmdFinish.enabled || presses > 0) return;
    ++presses;
    forms::Press(main.CmdFinish);
  };
  forms::Press(main.CmdFinish);
  EXPECT_EQ(presses, 1);
  EXPECT_EQ(programs.started.size(), 4U);  // three disks and the mastering
  EXPECT_TRUE(main.visible);
}

TEST_F(FinishTest, SecondPress_SavesTheSessionAndCloses) {
  forms::Press(main.CmdFinish);
  const std::size_t started = programs.started.size();
  forms::Press(main.CmdFinish);
  EXPECT_TRUE(host.Exists("C:\\Discwright\\vexacd.ini"));
  EXPECT_FALSE(main.visible);
  EXPECT_EQ(programs.started.size(), started);
}

// The user presses Esc or closes the window while a build runs, and is asked whether to cancel it.
class QuestionTest : public FinishTest {
 protected:
  // Does `act` once, at the first moment of the build at which the user can act.
  void BuildAnd(const std::function<void()>& act) {
    bool has_acted = false;
    user.on_do_events = [this, &act, &has_acted] {
      if (programs.started.empty() || std::exchange(has_acted, true)) return;
      act();
    };
    forms::Press(main.CmdFinish);
    EXPECT_TRUE(has_acted);
    EXPECT_FALSE(context.is_asking);
  }

  void SetUp() override {
    context.CancelApp = [this, cancel = context.CancelApp] {
      ++cancellations;
      cancel();
    };
  }

  int cancellations = 0;
};

TEST_F(QuestionTest, Esc_AsksAndNoLetsTheBuildGoOn) {
  user.answer = false;
  BuildAnd([this] { forms::AskToCancel(main); });
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(user.messages[0].text, "Cancel the build?");
  EXPECT_EQ(user.messages[0].title, "Vexa Discwright");
  EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kExclamation);
  EXPECT_TRUE(user.messages[0].question);
  EXPECT_FALSE(main.CancelCopy);
  EXPECT_TRUE(main.visible);
}

TEST_F(QuestionTest, EscAndYes_IsTheCancelButton) {
  BuildAnd([this] { forms::AskToCancel(main); });
  EXPECT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(cancellations, 1);
  EXPECT_EQ(context.result.end, steps::BuildEnd::kCancelled);
  EXPECT_TRUE(main.visible);
}

TEST_F(QuestionTest, Cross_AsksAndNoLetsTheBuildGoOn) {
  user.answer = false;
  BuildAnd([this] { forms::AskToClose(main); });
  EXPECT_EQ(user.messages.size(), 1U);
  EXPECT_FALSE(main.CancelCopy);
  EXPECT_TRUE(main.visible);
  EXPECT_FALSE(context.closing);
}

TEST_F(QuestionTest, NoAndThenEsc_AsksAgain) {
  user.answer = false;
  BuildAnd([this] {
    forms::AskToClose(main);
    forms::AskToCancel(main);
  });
  EXPECT_EQ(user.messages.size(), 2U);
}

TEST_F(QuestionTest, CancelButton_AsksNothing) {
  BuildAnd([this] { forms::Press(main.CmdCancel); });
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(context.result.end, steps::BuildEnd::kCancelled);
}

TEST_F(QuestionTest, CancelledBuildThatStillRuns_AsksNothing) {
  BuildAnd([this] {
    forms::Press(main.CmdCancel);
    forms::AskToCancel(main);
    EXPECT_EQ(cancellations, 1);
    EXPECT_TRUE(main.visible);
    forms::AskToClose(main);
  });
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_FALSE(main.visible);
}

TEST_F(QuestionTest, BuildCancelledWhileTheQuestionIsOpen_IsNotCancelledAgainByYes) {
  user.on_question = [this] { forms::Press(main.CmdCancel); };
  BuildAnd([this] { forms::AskToCancel(main); });
  EXPECT_EQ(cancellations, 1);
  EXPECT_EQ(context.result.end, steps::BuildEnd::kCancelled);
}

TEST_F(QuestionTest, BuildThatEndsWhileTheQuestionIsOpen_IsNotCancelledByYes) {
  user.on_question = [this] {
    main.Step = 9;
    main.Finished = true;
  };
  for (const auto ask : {forms::AskToCancel, forms::AskToClose}) {
    StartOn(10);
    ask(main);
    EXPECT_TRUE(main.visible);
    EXPECT_FALSE(context.closing);
  }
  EXPECT_EQ(cancellations, 0);
}

TEST_F(QuestionTest, EscWhileTheQuestionIsOpen_AsksNoSecondTime) {
  user.answer = false;
  user.on_question = [this] {
    user.on_question = nullptr;
    forms::AskToCancel(main);
    forms::AskToClose(main);
  };
  BuildAnd([this] { forms::AskToCancel(main); });
  EXPECT_EQ(user.messages.size(), 1U);
  EXPECT_FALSE(main.CancelCopy);
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
