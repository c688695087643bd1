// Tests of --controls: it lists the controls, writes nothing, and works while a build is running.
#include <algorithm>
#include <set>

#include "forms/all_windows.h"
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

using ::testing::StartsWith;

class Controls : public BuildTest {
 protected:
  // Returns the list. Expects that nothing is written.
  std::string Listed(const std::vector<std::string>& arguments) const {
    const auto before = Fingerprint(place.path());
    const Outcome outcome = program.Build(arguments);
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(Fingerprint(place.path()) == before) << ::testing::PrintToString(arguments);
    return outcome.out;
  }
};

std::string LineOf(const std::string& text, const std::string& control) {
  const auto lines = LinesWith(text, "  " + control + " ");
  return lines.size() == 1 ? lines.front() : "<missing>";
}

// Every control has a line, except titles and controls that are on no page.
bool IsListed(const forms::Control& control) {
  const auto* label = dynamic_cast<const forms::Label*>(&control);
  const bool is_heading = label != nullptr && label->heading;
  return !is_heading && dynamic_cast<const forms::Frame*>(&control) == nullptr &&
         dynamic_cast<const forms::Picture*>(&control) == nullptr &&
         dynamic_cast<const forms::FileDialog*>(&control) == nullptr;
}

}  // namespace

TEST_F(Controls, AllOfThem_AreEveryControlOnce) {
  const std::string all = Listed({"--controls"});
  forms::Windows windows;
  std::multiset<std::string> expected;
  for (const forms::Form* form : windows.All()) {
    for (const forms::Control* control : form->controls()) {
      if (IsListed(*control)) expected.insert(control->name());
    }
  }
  std::multiset<std::string> listed;
  for (const std::string& line : LinesWith(all, "")) {
    const bool is_control = line.starts_with("  ") && !line.starts_with("  -- ");
    if (is_control) listed.insert(line.substr(2, line.find(' ', 2) - 2));
  }
  EXPECT_EQ(listed, expected);
  for (std::size_t page = 0; page < forms::kPageCount; ++page) {
    EXPECT_THAT(LinesWith(all, "Page " + std::to_string(page) + ": "), SizeIs(1)) << page;
  }
}

TEST_F(Controls, OnePageOrDialog_IsItsPartOfAll) {
  const std::string all = Listed({"--controls"});
  for (const std::string page : {"0", "5", "10", "FrmWin2KInfo", "frmwin9xinfo"}) {
    const std::string text = Listed({"--controls", page});
    EXPECT_THAT(LinesWith(text, "Page "), SizeIs(page.starts_with("F") || page.starts_with("f") ? 0 : 1)) << page;
    EXPECT_THAT(all, HasSubstr(text));
  }
  EXPECT_EQ(Listed({"--controls=4"}), Listed({"--controls", "4"}));
  EXPECT_EQ(Listed({"--controls="}), all);
  EXPECT_EQ(Listed({"--controls", "--quiet"}), all);
}

TEST_F(Controls, UnknownPage_IsWrongUsage) {
  for (const std::string page : {"11", "FrmDiscwright", "contents"}) {
    const Outcome outcome = program.Build({"--controls", page});
    EXPECT_EQ(outcome.exit_code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "discwright-build: --controls: there is no page '" + page +
                               "'; the pages are 0 to 10, FrmWin2KInfo and FrmWin9xInfo\n"
                               "Try 'discwright-build --help'.\n");
  }
}

TEST_F(Controls, ChoicesAndSession_StandThereAsTheirValues) {
  WriteFile(place / "my.ini", "[Main]\r\nOptimizeISO = 1\r\n[Win9x_Info]\r\nOwnerName = \"Ann\"\r\n");
  const std::string all = Listed({"--session", (place / "my.ini").string(), "--controls", "--set", "ChkVexaUtils=1",
                                  "--set", "TxtUtils_Loc=/media/tools", "-o", (place / "my.iso").string()});
  EXPECT_THAT(LineOf(all, "ChkOptimizeISO"), HasSubstr(" = 1"));
  EXPECT_THAT(LineOf(all, "ChkVexaUtils"), HasSubstr(" = 1"));
  EXPECT_THAT(LineOf(all, "TxtUtils_Loc"), HasSubstr("text box   yes  "));
  EXPECT_THAT(LineOf(all, "TxtUtils_Loc"), HasSubstr(" = \"/media/tools\""));
  EXPECT_THAT(LineOf(all, "TxtISOLoc"), HasSubstr(" = \"" + (place / "my.iso").string() + "\""));
  EXPECT_THAT(Listed({"--session", (place / "my.ini").string(), "--controls", "FrmWin9xInfo"}),
              HasSubstr("Owner Name : = \"Ann\""));
}

TEST_F(Controls, SessionOfTheProgram_LeavesTheAnswersOfTheLastBuildAlone) {
  WriteFile(program / "vexacd.ini", "[Main]\r\nOptimizeISO = 1\r\n");
  WriteFile(program / "keyfile2.txt", "[Win9xInfo]\r\nOwnerName=Ann\r\n");
  EXPECT_THAT(LineOf(Listed({"--controls", "7"}), "ChkOptimizeISO"), HasSubstr(" = 1"));
  EXPECT_EQ(ReadFile(program / "keyfile2.txt"), "[Win9xInfo]\r\nOwnerName=Ann\r\n");
}

TEST_F(Controls, WrongChoice_IsWrongUsage) {
  const Outcome outcome = program.Build({"--controls", "--set", "ChkVexaUtil=1"});
  EXPECT_EQ(outcome.exit_code, 2);
  EXPECT_EQ(outcome.out, "");
}

TEST_F(Controls, Password_IsNeverShown) {
  WriteFile(place / "secret", "top-secret\n");
  const std::string all = Listed({"--controls", "--password-file", (place / "secret").string()});
  EXPECT_THAT(all, Not(HasSubstr("top-secret")));
  EXPECT_THAT(LineOf(all, "TxtPass1"), HasSubstr("Password = (hidden)"));
  EXPECT_THAT(LineOf(all, "ChkPassProtect"), HasSubstr(" = 1"));
}

TEST_F(Controls, WhileABuildIsUnderWay_AreListedAndDisturbNothing) {
  program.ReplaceProgram("dfl", ": > begun\nuntil [ -e '" + (place / "go on").string() +
                                    "' ]; do sleep 0.05; done\necho '0 files linked, 0 bytes saved'\n");
  RunningProgram build(Command({"--set", "ChkOptimizeISO=1"}));
  ASSERT_TRUE(WaitUntil([&] { return HasBegun(); }));
  const Outcome listed = program.Build({"--controls", "1"});
  WriteFile(place / "go on", "");
  EXPECT_EQ(listed.exit_code, 0) << listed.err;
  EXPECT_THAT(listed.out, StartsWith("Page 1: "));
  const Outcome outcome = build.Wait();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
}

}  // namespace discwright::testing
