// Tests of the Finish button: what is asked before a build begins and before one is cancelled, and the build's end.
#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/wizard/wizard_fixture.h"
#include "wizard/help.h"
#include "wizard/navigation.h"

namespace discwright::wizard {
namespace {

using testing::DiscImage;
using ::testing::ElementsAre;
using testing::FakeRun;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using testing::WizardFixture;

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
    host.AddFile("C:\\vexacd.iso", DiscImage());
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

// What is asked or refused before the first Finish starts a build.
class StartOfABuildTest : public FinishTest {
 protected:
  // Presses Finish, which must not start a build, and returns the only message.
  host::Message PressInVain() {
    forms::Press(main.CmdFinish);
    EXPECT_THAT(programs.started, IsEmpty());
    EXPECT_THAT(VisiblePages(), ElementsAre(8));
    EXPECT_FALSE(main.Finished);
    EXPECT_THAT(user.messages, SizeIs(1));
    return user.messages.empty() ? host::Message{} : user.messages.front();
  }
};

TEST_F(StartOfABuildTest, FileOfAnotherKind_IsNotReplacedWithoutAYes) {
  host.AddFile("C:\\vexacd.iso", "a letter to Ann");
  user.answer = false;
  const host::Message question = PressInVain();
  EXPECT_EQ(question.text, "c:\\vexacd.iso is a file of another kind.\r\nReplace it?");
  EXPECT_EQ(question.title, "Error");
  EXPECT_TRUE(question.question);
  EXPECT_EQ(host.Content("C:\\vexacd.iso"), "a letter to Ann");
  EXPECT_EQ(context.claim, nullptr);
}

TEST_F(StartOfABuildTest, FileOfAnotherKindAndYes_IsBuilt) {
  host.AddFile("C:\\vexacd.iso", "a letter to Ann");
  forms::Press(main.CmdFinish);
  EXPECT_THAT(user.messages, SizeIs(1));
  EXPECT_FALSE(programs.started.empty());
}

TEST_F(StartOfABuildTest, DiscImage_IsReplacedWithoutAQuestion) {
  forms::Press(main.CmdFinish);
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_FALSE(programs.started.empty());
}

TEST_F(StartOfABuildTest, FolderInTheWorkspacesPlace_IsRefused) {
  host.AddFile("C:\\Discwright\\vexacd\\of the user.txt", "1");
  const host::Message refusal = PressInVain();
  EXPECT_THAT(refusal.text, HasSubstr("C:\\Discwright\\vexacd is not known to be made by this program"));
  EXPECT_FALSE(refusal.question);
  EXPECT_TRUE(host.Exists("C:\\Discwright\\vexacd\\of the user.txt"));
}

TEST_F(StartOfABuildTest, ProgramFolder_IsClaimedUntilTheBuildHasEnded) {
  bool claimed = false;
  user.on_do_events = [&] { claimed = claimed || context.claim != nullptr; };
  forms::Press(main.CmdFinish);
  EXPECT_TRUE(claimed);
  EXPECT_EQ(context.claim, nullptr);
}

// A running mastering disables the Cancel button.
TEST_F(QuestionTest, EscWhileCancelIsDisabled_AsksNothing) {
  BuildAnd([this] {
    main.CmdCancel.enabled = false;
    forms::AskToCancel(main);
  });
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(cancellations, 0);
}

}  // namespace
}  // namespace discwright::wizard
