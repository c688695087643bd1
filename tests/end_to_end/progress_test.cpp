// Tests of the progress that discwright-build shows, in a file and on a terminal.
#include <algorithm>

#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

class Progress : public BuildTest {};

// A terminal that understands the control characters which the program uses.
class Screen {
 public:
  void Show(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text.compare(i, 3, "\x1b[K") == 0) {
        lines_.back().resize(column_);
        i += 2;
      } else {
        Put(text[i]);
      }
    }
  }
  const std::vector<std::string>& lines() const { return lines_; }
  std::size_t widest() const { return widest_; }

 private:
  void Put(char character) {
    if (character == '\r') {
      column_ = 0;
    } else if (character == '\n') {
      lines_.emplace_back();
    } else {
      std::string& line = lines_.back();
      line.resize(std::max(line.size(), column_ + 1), ' ');
      line[column_++] = character;
      widest_ = std::max(widest_, column_);
    }
  }

  std::vector<std::string> lines_ = {""};
  std::size_t column_ = 0;
  std::size_t widest_ = 0;
};

}  // namespace

TEST_F(Progress, IntoAFile_IsOneLinePerStep) {
  EXPECT_EQ(Build().err,
            "1/5 Creating Vexa Boot Disks\n"
            "2/5 Inserting Windows 2000/XP/2003 Setup Files: not chosen\n"
            "3/5 Inserting Windows 9x Setup Files: not chosen\n"
            "4/5 Adding Vexa Utilities/Advanced Tools\n"
            "5/5 Creating Final ISO File\n");
}

TEST_F(Progress, OnATerminal_LiveLineIsDrawnAndRemovedAgain) {
  WriteFile(place / "tools" / ("long name " + std::string(150, 'n')), "content");
  const Outcome outcome = Build(Utilities(place / "tools"), {.on_terminal = true});
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_THAT(outcome.err, HasSubstr("\rCreating Vexa Boot Disks completed\x1b[K"));
  Screen screen;
  screen.Show(outcome.err);
  EXPECT_THAT(screen.lines(),
              ElementsAre("1/5 Creating Vexa Boot Disks",                                //
                          "2/5 Inserting Windows 2000/XP/2003 Setup Files: not chosen",  //
                          "3/5 Inserting Windows 9x Setup Files: not chosen",            //
                          "4/5 Adding Vexa Utilities/Advanced Tools",                    //
                          "5/5 Creating Final ISO File",                                 //
                          "Image:   " + image.string(), StartsWith("Size:    "), StartsWith("SHA-256: "), ""));
}

TEST_F(Progress, OnATerminal_LiveLineNeverReachesTheLastColumn) {
  const std::string odd = "control \x1b[2J\a characters ";
  for (int number = 0; number < 300; ++number) {
    WriteFile(place / "tools" / (odd + std::string(100, 'n') + std::to_string(number)), "content");
  }
  const Outcome outcome =
      Build(Join({"--set", "ChkCleanSession=1"}, Utilities(place / "tools")), {.on_terminal = true});
  EXPECT_EQ(outcome.exit_code, 0);
  const std::string before_result = outcome.err.substr(0, outcome.err.find("Image:"));
  EXPECT_THAT(before_result, Not(HasSubstr("\x1b[2J")));
  Screen screen;
  screen.Show(before_result);
  EXPECT_LT(screen.widest(), 80U);
}

TEST_F(Progress, QuietOnATerminal_ShowsNothing) { EXPECT_EQ(Build({"--quiet"}, {.on_terminal = true}).err, ""); }

}  // namespace discwright::testing
