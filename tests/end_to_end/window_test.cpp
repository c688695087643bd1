// Tests of the real program with a window, which is used by keys on a display in memory.
#include <csignal>
#include <memory>

#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/virtual_display.h"

namespace discwright::testing {

namespace {

constexpr const char* kTitle = "Vexa Discwright";

class WholeWizard : public BuildTest {
 protected:
  WholeWizard() {
    program.RestoreProgram("discwright");
    WriteFile(place / "additional files" / "Notes.txt", "notes");
  }

  // Builds without a window, and keeps the choices as those of the window's next start. The image is at `headless`.
  void BuildWithoutWindow() {
    const Outcome outcome =
        Build(Join(AdditionalFiles(place / "additional files"), {"--save-session", (program / "vexacd.ini").string()}),
              {.environment = {{"SOURCE_DATE_EPOCH", "1000000000"}}});
    ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
    fs::rename(image, headless);
  }

  // Starts the program with the window, with the environment of the display.
  void Start() {
    auto environment = display.Environment();
    environment.emplace_back("SOURCE_DATE_EPOCH", "1000000000");
    environment.emplace_back("QT_QPA_PLATFORM", "xcb");
    environment.emplace_back("LSAN_OPTIONS", "print_suppressions=0:suppressions='" FOREIGN_LEAKS "'");
    wizard = std::make_unique<RunningProgram>(std::vector<std::string>{(program / "discwright").string()},
                                              Surroundings{.environment = environment});
    window = display.WaitForWindow(kTitle);
    EXPECT_NE(window, "") << wizard->ErrorText();
  }

  // Makes the disk image maker wait for the file "go on" before it makes an image.
  void FirstFloppyWaits() const {
    fs::rename(program / "CreateDsk", program / "CreateDsk-real");
    program.ReplaceProgram("CreateDsk", ": > '" + (program / "begun").string() + "'\nuntil [ -e '" +
                                            (place / "go on").string() + "' ]; do sleep 0.05; done\nexec '" +
                                            (program / "CreateDsk-real").string() + "' \"$@\"\n");
  }

  // Next on the four pages before the summary, then Finish.
  void StartTheBuild() const { display.Press(window, std::vector<std::string>(5, "Return")); }

  // Finish does nothing while the build runs. Afterwards it saves the choices and ends the program.
  void EndWithFinish() const {
    EXPECT_TRUE(WaitUntil([&] {
      display.Press(window, {"Return"});
      return wizard->HasEnded();
    }));
    EXPECT_EQ(wizard->Wait().exit_code, 0);
  }

  VirtualDisplay display;
  fs::path headless = place / "headless.iso";
  std::unique_ptr<RunningProgram> wizard;
  std::string window;
};

TEST_F(WholeWizard, BuildThroughTheWindow_GivesTheSameImageAsWithoutIt) {
  BuildWithoutWindow();
  Start();
  StartTheBuild();
  EndWithFinish();
  EXPECT_TRUE(ReadFile(image) == ReadFile(headless));  // a failure must not print two images
  EXPECT_TRUE(fs::exists(program / "vexacd.ini"));
}

TEST_F(WholeWizard, EscDuringABuild_AsksBeforeItCancels) {
  BuildWithoutWindow();
  FirstFloppyWaits();
  Start();
  StartTheBuild();
  ASSERT_TRUE(WaitUntil([&] { return HasBegun(); }));
  display.Press(window, {"Escape"});
  display.Press(display.WaitForWindow(kTitle, 2), {"alt+n"});
  ASSERT_EQ(display.WaitForWindow(kTitle, 1), window);
  display.Press(window, {"Escape"});
  display.Press(display.WaitForWindow(kTitle, 2), {"alt+y"});
  ASSERT_EQ(display.WaitForWindow(kTitle, 1), window);
  EXPECT_FALSE(wizard->HasEnded());
  WriteFile(place / "go on", "");
  EndWithFinish();
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(WholeWizard, SignalDuringABuild_EndsItWithoutAQuestion) {
  BuildWithoutWindow();
  MasteringBeginsAndHangs();
  Start();
  StartTheBuild();
  ASSERT_TRUE(WaitUntil([&] { return HasBegun(); }));
  wizard->Send(SIGTERM);
  EXPECT_EQ(wizard->Wait().exit_code, 130);
  EXPECT_TRUE(AllProcessesEnd(place.path()));
  EXPECT_TRUE(NoImageAt(image));
}

}  // namespace

}  // namespace discwright::testing
