// Tests of the environment: the home folder, the date, and a start without any arguments.
#include <pwd.h>
#include <unistd.h>

#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

using SurroundingsOfABuild = BuildTest;

}  // namespace

TEST_F(SurroundingsOfABuild, NoOptionAtAll_MakesACdInTheHomeFolder) {
  const fs::path home = place / "K\xC3\xB6ln is my home";
  fs::create_directories(home);
  const Outcome outcome = program.Build({}, {.environment = {{"HOME", home.string()}}});
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_THAT(outcome.out, ::testing::StartsWith("Image:   " + (home / "vexacd.iso").string() + "\n"));
  EXPECT_EQ(outcome.err,
            "1/5 Creating Vexa Boot Disks\n"
            "2/5 Inserting Windows 2000/XP/2003 Setup Files: not chosen\n"
            "3/5 Inserting Windows 9x Setup Files: not chosen\n"
            "4/5 Adding Vexa Utilities/Advanced Tools\n"
            "5/5 Creating Final ISO File\n");
  EXPECT_TRUE(ReadWithBsdtar(home / "vexacd.iso").contains("boot/images/vexastart.img"));
  EXPECT_EQ(std::distance(fs::directory_iterator(home), fs::directory_iterator()), 1);
  const Outcome again = program.Build({}, {.environment = {{"HOME", home.string()}}});
  EXPECT_EQ(again.exit_code, 0) << again.err;
}

TEST_F(SurroundingsOfABuild, HomeFolderWithABackslashInItsName_GetsTheImage) {
  const fs::path home = place / "back\\slash";
  fs::create_directories(home);
  const Outcome outcome = program.Build({}, {.environment = {{"HOME", home.string()}}});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(fs::exists(home / "vexacd.iso"));
}

TEST_F(SurroundingsOfABuild, HomeFolderThatIsMissing_IsReportedAndNotMade) {
  const Outcome outcome = program.Build({}, {.environment = {{"HOME", (place / "missing").string()}}});
  EXPECT_EQ(outcome.exit_code, 3);
  EXPECT_EQ(outcome.err, "Error: ISO File destination is not correct, check again\nTxtISOLoc: The folder " +
                             (place / "missing").string() +
                             " does not exist: create it, or choose another place for the image.\n"
                             "The page \"Specify ISO File Options\" did not accept its choices.\n");
  EXPECT_FALSE(fs::exists(place / "missing"));
}

// Only checks the default, because an image in the home folder would disturb the person who runs the tests.
TEST_F(SurroundingsOfABuild, HomeNotInTheEnvironmentOrNoPath_IsThatOfTheUser) {
  const std::string home = getpwuid(getuid())->pw_dir;
  const std::string expected = " = \"" + (fs::path(home) / "vexacd.iso").string() + "\"";
  const Outcome unset = RunProgram(Join({"env", "-u", "HOME"}, program.Command({"--controls", "7"})));
  EXPECT_THAT(unset.out, HasSubstr(expected));
  const Outcome relative = program.Build({"--controls", "7"}, {.environment = {{"HOME", "here"}}});
  EXPECT_THAT(relative.out, HasSubstr(expected));
}

TEST_F(SurroundingsOfABuild, DateThatIsNoNumber_IsRefusedAtTheStart) {
  WriteFile(program / "vexacd" / "left.txt", "of the last build");
  for (const std::string date : {"abc", "", "-1", "1.5", "1000000000 ", "253402300800"}) {
    const Outcome outcome = Build({}, {.environment = {{"SOURCE_DATE_EPOCH", date}}});
    EXPECT_EQ(outcome.exit_code, 2) << date;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "discwright-build: SOURCE_DATE_EPOCH in the environment takes a number of seconds since 1970, up to the "
              "year 9999, not '" +
                  date + "'\nTry 'discwright-build --help'.\n");
    EXPECT_TRUE(NoImageAt(image));
    EXPECT_EQ(ReadFile(program / "vexacd" / "left.txt"), "of the last build");
  }
}

}  // namespace discwright::testing
