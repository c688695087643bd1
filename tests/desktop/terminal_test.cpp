// Tests of the live line of a terminal, and of the lines above it.
#include "desktop/console/terminal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "desktop/console/console_user.h"
#include "tests/desktop/fake_console.h"

namespace discwright::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Clock = std::chrono::steady_clock;

constexpr auto kInterval = std::chrono::milliseconds(50);

class Terminals : public ::testing::Test {
 protected:
  using Progress = Terminal::Progress;
  Terminal& Open(Progress progress) {
    terminal_ = std::make_unique<Terminal>(main, progress);
    return *terminal_;
  }
  void ShowProgress(const std::string& text, int percent) {
    main.BarSub_Step.visible = true;
    main.LblSub_Step.caption = text;
    main.BarSub_Step.value = percent;
  }
  static std::string Drawn(const std::string& text) { return "\r" + text + "<erased>"; }
  static std::string Removed() { return "\r<erased>"; }

  testing::FakeConsole console;
  forms::FrmDiscwright main;

 private:
  std::unique_ptr<Terminal> terminal_;
};

TEST_F(Terminals, SeveralChanges_AreDrawnTogether) {
  Terminal& terminal = Open(Progress::kLiveLine);
  ShowProgress("first.txt", 10);
  ShowProgress("second.txt", 20);
  EXPECT_EQ(console.TakeError(), "");
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), Drawn("20%  second.txt"));
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), "") << "nothing has changed";
}

TEST_F(Terminals, StepThatRuns_IsNamedBeforeItsFile) {
  Terminal& terminal = Open(Progress::kLiveLine);
  main.LblMsg4.bold = true;
  ShowProgress("a.txt", 50);
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), Drawn("Adding Vexa Utilities/Advanced Tools: 50%  a.txt"));
  main.BarSub_Step.visible = false;
  main.LblSub_Step.caption = main.LblMsg4.caption.get();
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), Drawn("Adding Vexa Utilities/Advanced Tools")) << "said once";
}

TEST_F(Terminals, RangeOfTheBar_IsShownInPercent) {
  Terminal& terminal = Open(Progress::kLiveLine);
  ShowProgress("large.bin", 0);
  main.BarSub_Step.min = 4'000'000'000;
  main.BarSub_Step.max = 12'000'000'000;
  main.BarSub_Step.value = 6'000'000'000;
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), Drawn("25%  large.bin"));
  main.BarSub_Step.max = 4'000'000'000;
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), Drawn("large.bin")) << "a bar without a range has no percentage";
}

TEST_F(Terminals, LineAboveTheLiveLine_IsPrintedAfterItsLastState) {
  Terminal& terminal = Open(Progress::kLiveLine);
  ShowProgress("first.txt", 10);
  terminal.Update(Terminal::Pace::kAtOnce);
  ShowProgress("last.txt", 99);
  console.TakeError();
  terminal.PrintLine("warning: a line");
  EXPECT_EQ(console.TakeError(), Drawn("99%  last.txt") + Removed() + "warning: a line\n");
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), "") << "the next change brings it back";
  ShowProgress("last.txt", 100);
  terminal.Update(Terminal::Pace::kLimited);
  EXPECT_EQ(console.TakeError(), Drawn("100%  last.txt")) << "a line that is not there is drawn at once";
}

TEST_F(Terminals, LiveLineRemovedAtTheEnd_HasShownItsLastState) {
  Terminal& terminal = Open(Progress::kLiveLine);
  ShowProgress("last.txt", 99);
  terminal.ClearLiveLine();
  EXPECT_EQ(console.TakeError(), Drawn("99%  last.txt") + Removed());
  terminal.ClearLiveLine();
  EXPECT_EQ(console.TakeError(), "");
}

// A machine that needs longer than the interval between two drawings cannot make this test fail.
TEST_F(Terminals, LimitedPace_LeavesTimeBetweenTwoDrawings) {
  Terminal& terminal = Open(Progress::kLiveLine);
  bool tried = false;
  for (int attempt = 0; attempt < 100 && !tried; ++attempt) {
    ShowProgress("first " + std::to_string(attempt), 10);
    terminal.Update(Terminal::Pace::kAtOnce);
    const Clock::time_point drawn = Clock::now();
    console.TakeError();
    ShowProgress("second " + std::to_string(attempt), 20);
    terminal.Update(Terminal::Pace::kLimited);
    main.LblSub_Step.Refresh();
    const std::string shown = console.TakeError();
    tried = Clock::now() - drawn < kInterval;
    EXPECT_TRUE(shown.empty() || !tried) << shown;
  }
  ASSERT_TRUE(tried);
  std::this_thread::sleep_for(kInterval + std::chrono::milliseconds(1));
  terminal.Update(Terminal::Pace::kLimited);
  EXPECT_NE(console.TakeError(), "");
}

TEST_F(Terminals, RepaintedRecord_IsDrawn) {
  Open(Progress::kLiveLine);
  main.LblSub_Step.caption = "Cleaning";
  EXPECT_EQ(console.TakeError(), "");
  main.LblSub_Step.Refresh();
  EXPECT_EQ(console.TakeError(), Drawn("Cleaning"));
}

TEST_F(Terminals, LongLine_IsCutBeforeTheLastColumnAndNeverInsideACharacter) {
  Terminal& terminal = Open(Progress::kLiveLine);
  console.width = 11;
  main.LblSub_Step.caption =
      "\xC3\xBC\xC3\xBC"
      "3456789\xC3\xBC"
      "and more";
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), Drawn("\xC3\xBC\xC3\xBC"
                                       "3456789\xC3\xBC"));
}

TEST_F(Terminals, ControlCharacters_AreNotSentToTheTerminal) {
  Terminal& terminal = Open(Progress::kLiveLine);
  main.LblSub_Step.caption = "a\x1b[2J\x07\x7F\tz";
  terminal.Update(Terminal::Pace::kAtOnce);
  EXPECT_EQ(console.TakeError(), Drawn("a?[2J???z"));
  terminal.PrintLine("b\x1b[2J");
  EXPECT_EQ(console.TakeError(), Removed() + "b?[2J\n");
}

TEST_F(Terminals, TextOfSeveralLines_IsPrintedLineByLine) {
  Terminal& terminal = Open(Progress::kLinePerStep);
  terminal.PrintLine("one\r\ntwo\n\nthree");
  EXPECT_EQ(console.TakeError(), "one\ntwo\n\nthree\n");
}

TEST_F(Terminals, StepOnATerminal_IsALineWhenItIsDone) {
  Open(Progress::kLiveLine);
  main.LblMsg1.bold = true;
  main.LblMsg1.bold = false;
  EXPECT_EQ(console.TakeError(), "");
  main.LblRight1.caption = forms::kTick;
  main.LblRight1.caption = forms::kTick;
  EXPECT_EQ(console.TakeError(), Drawn("") + Removed() + "1/5 Creating Vexa Boot Disks\n");
  main.LblRight2.caption = forms::kCross;
  EXPECT_EQ(console.TakeError(),
            Drawn("") + Removed() + "2/5 Inserting Windows 2000/XP/2003 Setup Files: not chosen\n");
}

TEST_F(Terminals, StepInAFile_IsALineWhenItBegins) {
  Terminal& terminal = Open(Progress::kLinePerStep);
  main.LblMsg5.bold = true;
  ShowProgress("a.txt", 10);
  main.LblSub_Step.Refresh();
  terminal.Update(Terminal::Pace::kAtOnce);
  main.LblMsg5.bold = false;
  main.LblRight5.caption = forms::kTick;
  main.LblRight3.caption = forms::kCross;
  EXPECT_EQ(console.TakeError(), "5/5 Creating Final ISO File\n3/5 Inserting Windows 9x Setup Files: not chosen\n");
}

TEST_F(Terminals, Quiet_ShowsLinesAndNoProgress) {
  Terminal& terminal = Open(Progress::kNone);
  main.LblMsg1.bold = true;
  ShowProgress("a.txt", 10);
  main.LblSub_Step.Refresh();
  main.LblRight1.caption = forms::kTick;
  main.LblRight2.caption = forms::kCross;
  terminal.Update(Terminal::Pace::kAtOnce);
  terminal.ClearLiveLine();
  EXPECT_EQ(console.TakeError(), "");
  terminal.PrintLine("warning: a line");
  EXPECT_EQ(console.TakeError(), "warning: a line\n");
}

TEST_F(Terminals, ProgramThatGoesToSleep_DrawsAtOnceBefore) {
  Terminal& terminal = Open(Progress::kLiveLine);
  ConsoleUser user(terminal, [] {});
  ShowProgress("first.txt", 10);
  terminal.Update(Terminal::Pace::kAtOnce);
  ShowProgress("second.txt", 20);
  console.TakeError();
  console.on_sleep = [this] { EXPECT_EQ(console.TakeError(), Drawn("20%  second.txt")); };
  user.DoEvents(500);
  EXPECT_THAT(console.sleeps, ElementsAre(500));
  user.DoEvents(0);
  EXPECT_THAT(console.sleeps, ElementsAre(500)) << "there is no time to sleep";
}

TEST_F(Terminals, CtrlC_IsReportedOnce) {
  int reported = 0;
  ConsoleUser user(Open(Progress::kLiveLine), [&] { ++reported; });
  user.DoEvents(0);
  EXPECT_EQ(reported, 0);
  console.on_sleep = [this] { console.interrupts = 1; };
  user.DoEvents(500);
  EXPECT_EQ(reported, 1);
  user.DoEvents(0);
  EXPECT_EQ(reported, 1);
  user.Wake();
  EXPECT_EQ(console.wake_ups, 1);
}

TEST_F(Terminals, MessageBox_IsItsTitleItsTextAndWhatItIsAbout) {
  ConsoleUser user(Open(Progress::kLinePerStep), [] {});
  host::Message box{"It is wrong !\r\nChoose again", "Error"};
  user.ShowMessage(box);
  EXPECT_EQ(console.TakeError(), "Error: It is wrong !\nChoose again\n");
  box.detail = "It is empty.";
  user.ShowMessage(box);
  EXPECT_EQ(console.TakeError(), "Error: It is wrong !\nChoose again\nIt is empty.\n");
  box.control = "TxtERDC";
  user.ShowMessage(box);
  EXPECT_EQ(console.TakeError(), "Error: It is wrong !\nChoose again\nTxtERDC: It is empty.\n");
}

TEST_F(Terminals, Question_IsAnsweredWithYesAndNotPrinted) {
  ConsoleUser user(Open(Progress::kLinePerStep), [] {});
  host::Message box{"Cancel the build?", "Vexa Discwright"};
  box.question = true;
  EXPECT_TRUE(user.ShowMessage(box));
  EXPECT_EQ(console.TakeError(), "");
  box.question = false;
  EXPECT_TRUE(user.ShowMessage(box));
  EXPECT_EQ(console.TakeError(), "Vexa Discwright: Cancel the build?\n");
}

}  // namespace
}  // namespace discwright::desktop
