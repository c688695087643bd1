// Tests of the window during and after a build: the progress page, the ways to cancel, and the ways to end the program.
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QProgressBar>
#include <QTest>

#include "tests/desktop/qt/window_fixture.h"

namespace discwright::desktop {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using testing::FakeRun;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kSession = "C:\\Discwright\\vexacd.ini";

class BuildViewTest : public testing::WindowFixture {
 protected:
  BuildViewTest() {
    host.AddFile("C:\\Discwright\\files\\vexacd\\boot\\loader.bin", "loader");
    programs.run = [this](const std::string& line) {
      const bool masters = line.ends_with("makecd.bat");
      if (on_program) on_program(masters);
      return masters ? FakeRun{mastering_output, {}, {}} : FakeRun{};
    };
    GoToSummary();
  }

  void GoToSummary() {
    // What the programs of the build leave behind: the images of the disks, and that of the CD.
    for (const char* image : {"vexastart.img", "vexaemm.img", "vexanet.img", "vexawin.img", "vexalinkwell.img"}) {
      host.AddFile("C:\\Discwright\\" + std::string(image), "disk");
    }
    host.AddFile("C:\\vexacd.iso", testing::DiscImage());
    GoTo(8);
    Choose(false, false, false);
  }

  // Presses Finish, and calls `act` once while the first program of the build runs.
  void BuildAnd(const std::function<void()>& act) {
    bool has_acted = false;
    on_program = [&](bool) {
      if (!std::exchange(has_acted, true)) act();
    };
    PressKey(Qt::Key_Enter);
    EXPECT_TRUE(has_acted);
    on_program = nullptr;
    Settle();
  }
  void Build() {
    BuildAnd([] {});
  }

  bool IsBold(const std::string& label) { return Widget(label).font().bold(); }
  std::string Mark(const std::string& mark) { return FromQt(Widget(mark).accessibleName()); }
  std::vector<std::string> Marks() {
    return {Mark("LblRight1"), Mark("LblRight2"), Mark("LblRight3"), Mark("LblRight4"), Mark("LblRight5")};
  }

  std::vector<std::string> mastering_output = {"12 extents written (0 MB)\n"};
  std::function<void(bool masters)> on_program;
};

TEST_F(BuildViewTest, ProgressPage_ShowsTheRunningStepInBold) {
  BuildAnd([this] {
    EXPECT_EQ(HeadingSeen(), "  Please Wait ... Creating the ISO file");
    EXPECT_TRUE(IsBold("LblMsg1"));
    EXPECT_FALSE(IsBold("LblMsg2"));
    EXPECT_EQ(ShownText("LblMsg1"), "Creating Vexa Boot Disks");
    EXPECT_THAT(Marks(), ElementsAre("", "", "", "", ""));
    EXPECT_FALSE(IsUsable("CmdFinish"));
    EXPECT_FALSE(IsUsable("CmdBack"));
    EXPECT_TRUE(IsUsable("CmdCancel"));
    EXPECT_TRUE(IsUsable("CmdHelp"));
  });
  EXPECT_FALSE(IsBold("LblMsg1"));
}

TEST_F(BuildViewTest, Mastering_ShowsTheMarksOfTheStepsBeforeIt) {
  std::vector<std::string> marks;
  on_program = [&](bool masters) {
    if (!masters) return;
    marks = Marks();
    EXPECT_TRUE(IsBold("LblMsg5"));
    EXPECT_FALSE(IsBold("LblMsg1"));
    EXPECT_FALSE(IsBold("LblMsg4"));
    EXPECT_EQ(ShownText("LblSub_Step"), "Creating Final ISO File");
  };
  PressKey(Qt::Key_Enter);
  EXPECT_THAT(marks, ElementsAre("done", "left out", "left out", "done", ""));
  EXPECT_THAT(Marks(), ElementsAre("done", "left out", "left out", "done", "done"));
}

TEST_F(BuildViewTest, MasteringOutput_MovesTheBarAndTheSubStep) {
  mastering_output = {" 12.50% done, estimate finish\n", " 45.67% done, estimate finish\n",
                      "12 extents written (7 MB)\n"};
  std::vector<int> percents;
  std::vector<std::string> texts;
  QObject::connect(&The<QProgressBar>("BarSub_Step"), &QProgressBar::valueChanged, &main(), [&](int) {
    const auto& bar = The<QProgressBar>("BarSub_Step");
    if (bar.isVisible()) percents.push_back(bar.value() * 100 / bar.maximum());
  });
  const forms::Subscription listening = records().Listen([&](forms::Control& control, forms::Facet, forms::By) {
    if (control.name() == "LblSub_Step") texts.push_back(ShownText("LblSub_Step"));
  });
  PressKey(Qt::Key_Enter);
  EXPECT_THAT(percents, Contains(12));
  EXPECT_THAT(percents, Contains(46));
  EXPECT_THAT(texts, Contains("Creating ISO File : 45.67% Done"));
  EXPECT_THAT(texts, Contains("Total ISO size : 7 MB"));
  EXPECT_FALSE(IsShown("BarSub_Step"));
}

TEST_F(BuildViewTest, EndedBuild_ShowsTheFinishPage) {
  Build();
  EXPECT_EQ(HeadingSeen(), "  Operation completed successfully");
  EXPECT_TRUE(IsUsable("CmdFinish"));
  EXPECT_FALSE(IsShown("CmdNext"));
  EXPECT_FALSE(IsShown("LblAbort"));
  EXPECT_THAT(watch.messages, IsEmpty());
}

TEST_F(BuildViewTest, Report_CanBeReadSelectedAndCopied) {
  host.AddFile("S:\\files\\boot\\loader.bin", "of the user");
  records().ChkAddFiles.value = 1;
  Build();
  EXPECT_EQ(ShownText("LblResult"), "The image was made, with 1 remark.");
  PressAlt('i');
  EXPECT_EQ(Focus(), "TxtReport");
  PressKey(Qt::Key_A, Qt::ControlModifier);
  PressKey(Qt::Key_C, Qt::ControlModifier);
  const std::string copied = FromQt(QApplication::clipboard()->text());
  EXPECT_THAT(copied, HasSubstr("Image:   c:\\vexacd.iso\n"));
  EXPECT_THAT(copied, HasSubstr("\nremark: S:\\files\\boot\\loader.bin: replaces the file"));
  Write("typed");
  EXPECT_EQ(records().TxtReport.text.get().find("typed"), std::string::npos);
}

TEST_F(BuildViewTest, FullDisk_IsShownOnTheFinishPage) {
  mastering_output = {"mkisofs: No space left on device\n"};
  Build();
  EXPECT_EQ(HeadingSeen(), "   Operation Aborted");
  EXPECT_TRUE(IsShown("LblAbort"));
  EXPECT_EQ(ShownText("LblAbort"), "Not enough free space to complete the ISO file !!!");
  EXPECT_EQ(Widget("LblSub_Step").palette().color(QPalette::WindowText), QColor(Qt::red));
}

TEST_F(BuildViewTest, KeysPressedByAccident_ChangeNothing) {
  BuildAnd([this] {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Enter, Qt::Key_Return, Qt::Key_A}) {
      PressKey(key);
      Settle();
    }
    EXPECT_EQ(Focus(), "FrmDiscwright");
  });
  EXPECT_FALSE(records().CancelCopy);
  EXPECT_THAT(watch.messages, IsEmpty());
  EXPECT_EQ(HeadingSeen(), "  Operation completed successfully");
  EXPECT_EQ(programs.started.size(), 4U);
}

TEST_F(BuildViewTest, KeysPressedByAccidentInAnyStep_ChangeNothing) {
  Choose(true, true, false);
  for (const char* sector : {"w2ksect.bin", "erdc.bin", "oobc.bin"}) {
    host.AddFile(std::string("C:\\Discwright\\files\\bootsect\\") + sector, "I386");
  }
  const forms::Subscription listening = records().Listen([&](forms::Control&, forms::Facet facet, forms::By) {
    if (facet != forms::Facet::kRepaint || records().Step != 10 || records().Finished) return;
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Enter}) PressKey(key);
  });
  PressKey(Qt::Key_Enter);
  EXPECT_FALSE(records().CancelCopy);
  EXPECT_THAT(watch.messages, IsEmpty());
  EXPECT_TRUE(main().isVisible());
  EXPECT_EQ(programs.started.size(), 5U);
}

TEST_F(BuildViewTest, CancelButton_CancelsWithoutAQuestion) {
  for (const std::function<void()>& press :
       std::vector<std::function<void()>>{[this] { Click("CmdCancel"); }, [] { PressAlt('c'); },
                                          [this] {
                                            TabTo("CmdCancel");
                                            PressKey(Qt::Key_Space);
                                          }}) {
    Start();
    GoToSummary();
    BuildAnd([&] {
      press();
      EXPECT_EQ(HeadingSeen(), "   Operation canceled");
      EXPECT_TRUE(IsUsable("CmdFinish"));
      EXPECT_FALSE(IsUsable("CmdCancel"));
    });
    EXPECT_EQ(HeadingSeen(), "   Operation canceled");
    EXPECT_EQ(program->context.result.end, steps::BuildEnd::kCancelled);
    EXPECT_THAT(watch.messages, IsEmpty());
    EXPECT_TRUE(main().isVisible());
  }
}

TEST_F(BuildViewTest, EscAndNo_LetTheBuildGoOn) {
  AnswerNext(QMessageBox::No);
  BuildAnd([this] {
    PressKey(Qt::Key_Escape);
    EXPECT_EQ(PageSeen(), 10);
  });
  ASSERT_EQ(watch.messages.size(), 1U);
  EXPECT_EQ(watch.messages[0].text, "Cancel the build?");
  EXPECT_EQ(watch.messages[0].title, "Vexa Discwright");
  EXPECT_EQ(watch.messages[0].icon, QMessageBox::Question);
  EXPECT_EQ(watch.messages[0].buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(HeadingSeen(), "  Operation completed successfully");
}

TEST_F(BuildViewTest, EscAndYes_CancelTheBuild) {
  AnswerNext(QMessageBox::Yes);
  BuildAnd([] { PressKey(Qt::Key_Escape); });
  EXPECT_EQ(HeadingSeen(), "   Operation canceled");
  EXPECT_TRUE(main().isVisible());
}

TEST_F(BuildViewTest, KeysPressedByAccidentInTheQuestion_LetTheBuildGoOn) {
  const auto keys = {Qt::Key_Escape, Qt::Key_Enter, Qt::Key_Space};
  for (const Qt::Key key : keys) PressKeyInNext(key);
  BuildAnd([&] {
    for (std::size_t i = 0; i < keys.size(); ++i) {
      PressKey(Qt::Key_Escape);
      Settle();
    }
  });
  EXPECT_EQ(watch.messages.size(), 3U);
  EXPECT_EQ(HeadingSeen(), "  Operation completed successfully");
}

TEST_F(BuildViewTest, KeysPressedByAccidentAfterTheQuestion_ChangeNothing) {
  AnswerNext(QMessageBox::No);
  BuildAnd([&] {
    PressKey(Qt::Key_Escape);
    Settle();
    EXPECT_TRUE(main().isActiveWindow());
    EXPECT_EQ(Focus(), "FrmDiscwright");
    PressKey(Qt::Key_Space);
    PressKey(Qt::Key_Enter);
    EXPECT_EQ(PageSeen(), 10);
  });
  EXPECT_FALSE(records().CancelCopy);
}

TEST_F(BuildViewTest, ClosedWindow_AsksAndGoesWhenTheBuildHasReturned) {
  AnswerNext(QMessageBox::No);
  AnswerNext(QMessageBox::Yes);
  BuildAnd([this] {
    main().close();
    EXPECT_TRUE(main().isVisible());
    EXPECT_FALSE(records().CancelCopy);
    main().close();
    EXPECT_TRUE(main().isVisible());
    EXPECT_TRUE(records().CancelCopy);
  });
  EXPECT_EQ(watch.messages.size(), 2U);
  EXPECT_FALSE(main().isVisible());
  EXPECT_FALSE(records().visible);
  EXPECT_FALSE(host.Exists(kSession));
}

TEST_F(BuildViewTest, QuestionOfTheSystemInTheQuestion_AsksNoSecondOne) {
  watch.InNext([this](QDialog& box) {
    forms::AskToClose(records());
    box.close();
  });
  BuildAnd([] { PressKey(Qt::Key_Escape); });
  EXPECT_EQ(watch.messages.size(), 1U);
  EXPECT_FALSE(records().CancelCopy);
}

TEST_F(BuildViewTest, SecondFinish_SavesTheChoicesForTheNextStart) {
  for (const std::function<void()>& press :
       std::vector<std::function<void()>>{[this] { Click("CmdFinish"); }, [] { PressKey(Qt::Key_Enter); }}) {
    Start();
    GoTo(7);
    Choose(false, true, false);
    Click("ChkOptimizeISO");
    const bool optimizes = records().ChkOptimizeISO.checked();
    PressKey(Qt::Key_Enter);
    GoToSummary();
    records().TxtAddFiles_Loc.text = "S:\\mine";
    Build();
    press();
    Settle();
    EXPECT_FALSE(main().isVisible());
    Start();
    EXPECT_EQ(PageSeen(), 0);
    EXPECT_EQ(FieldText("TxtAddFiles_Loc"), "S:\\mine");
    EXPECT_EQ(The<QAbstractButton>("ChkOptimizeISO").isChecked(), optimizes);
    EXPECT_EQ(FieldText("TxtISOLoc"), "c:\\vexacd.iso");
    host.nodes.erase(testing::FakeHost::Key(kSession));
  }
}

class CancelTest : public testing::WindowFixture, public ::testing::WithParamInterface<int> {};

TEST_P(CancelTest, CancelAndEsc_ShowTheFinishPageAndFinishSavesAndCloses) {
  for (const std::function<void()>& cancel : std::vector<std::function<void()>>{
           [this] { Click("CmdCancel"); }, [] { PressKey(Qt::Key_Escape); }, [] { PressAlt('c'); }}) {
    Start();
    GoTo(GetParam());
    cancel();
    EXPECT_EQ(HeadingSeen(), "   Operation canceled");
    EXPECT_TRUE(IsUsable("CmdFinish"));
    for (const char* button : {"CmdBack", "CmdNext", "CmdCancel"}) EXPECT_FALSE(IsUsable(button)) << button;
    PressKey(Qt::Key_Escape);  // there is nothing left to cancel
    EXPECT_TRUE(main().isVisible());
    EXPECT_FALSE(host.Exists(kSession));
    PressKey(Qt::Key_Enter);
    EXPECT_FALSE(main().isVisible());
    EXPECT_TRUE(host.Exists(kSession));
    host.nodes.erase(testing::FakeHost::Key(kSession));
  }
  EXPECT_THAT(watch.messages, IsEmpty());
}

TEST_P(CancelTest, ClosedWindow_EndsTheProgramWithoutSaving) {
  GoTo(GetParam());
  main().close();
  EXPECT_FALSE(main().isVisible());
  EXPECT_FALSE(records().visible);
  EXPECT_FALSE(host.Exists(kSession));
  EXPECT_THAT(watch.messages, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(AllPages, CancelTest, ::testing::Range(0, 9));

}  // namespace
}  // namespace discwright::desktop
