// Tests of odd folder names for the program and the image. A shell could read some of their characters as syntax.
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

constexpr const char* kOddProgramPlace = "Köln's \"2nd\" $HOME `disc` \\ & co";

class OddPlaces : public ::testing::Test {
 protected:
  void ExpectBuilds(const ProgramCopy& program, const fs::path& image) const {
    fs::create_directories(image.parent_path());
    WriteFile(place / "tools" / "a.txt", "a");
    const Outcome outcome = program.Build(Join(Output(image), Utilities(place / "tools")));
    ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Image:   " + image.string() + "\n"));
    std::size_t beside = 0;
    for (const auto& entry : fs::directory_iterator(image.parent_path())) beside += entry.path() == image ? 0 : 1;
    EXPECT_EQ(beside, 0U) << "something else was left beside the image";
    EXPECT_TRUE(Below(ReadWithBsdtar(image), "vexa").contains("a.txt"));
  }

  TemporaryFolder place;
};

struct OddName {
  const char* what;
  const char* name;
};

class OddImagePlaces : public OddPlaces, public ::testing::WithParamInterface<OddName> {};

constexpr OddName kOddNames[] = {
    {"Blanks", "with some  blanks"}, {"PercentSigns", "100%PATH%"},
    {"Ampersand", "this & that"},    {"Backticks", "`id`"},
    {"Dollars", "$(id) $HOME"},      {"DoubleQuotes", "say \"hello\""},
    {"SingleQuote", "it's"},         {"LineBreak", "two\nlines"},
    {"Backslash", "back\\slash"},    {"LeadingDash", "-dash"},
    {"Semicolon", "semi;colon"},     {"Umlaut", "Köln"},
    {"Wildcards", "star*?"},         {"StandInForABackslash", "back\uF05Cslash"},
};

}  // namespace

TEST_F(OddPlaces, ProgramFolderMovedToAnOddPlace_Builds) {
  ExpectBuilds(ProgramCopy(place / kOddProgramPlace), place / "out" / "rescue.iso");
}

TEST_F(OddPlaces, ProgramFolderMovedBetweenTwoBuilds_Builds) {
  const fs::path image = place / "out" / "rescue.iso";
  ExpectBuilds(ProgramCopy(place / "before"), image);
  fs::rename(place / "before", place / "after");
  const Outcome outcome = RunProgram({(place / "after" / "discwright-build").string(), "-o", image.string()});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_FALSE(ReadWithBsdtar(image).contains("vexa"));
}

TEST_F(OddPlaces, ProgramCalledThroughALink_BuildsInItsOwnFolder) {
  const ProgramCopy program(place / "program");
  fs::create_symlink(program / "discwright-build", place / "link");
  const Outcome outcome = RunProgram({(place / "link").string(), "-o", (place / "rescue.iso").string()});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(fs::exists(program / "mkisofs.log"));
}

TEST_F(OddPlaces, ImageInQuotes_IsTheFileWithoutThem) {
  const ProgramCopy program(place / "program");
  const fs::path image = place / "an image.iso";
  for (const char* when : {"new", "existing"}) {
    const Outcome outcome = program.Build({"--set", "TxtISOLoc=\"" + image.string() + "\" "});
    EXPECT_EQ(outcome.exit_code, 0) << when << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Image:   " + image.string() + "\n"));
    EXPECT_TRUE(ReadWithBsdtar(image).contains("boot/images/vexastart.img"));
  }
}

TEST_P(OddImagePlaces, FolderOfTheImage_ImageIsMadeExactlyThere) {
  ExpectBuilds(ProgramCopy(place / "program"), place / GetParam().name / "rescue disc.iso");
}

TEST_P(OddImagePlaces, NameOfTheImage_ImageIsMadeExactlyThere) {
  ExpectBuilds(ProgramCopy(place / "program"), place / "out" / (std::string(GetParam().name) + ".iso"));
}

INSTANTIATE_TEST_SUITE_P(Names, OddImagePlaces, ::testing::ValuesIn(kOddNames),
                         [](const auto& test) { return test.param.what; });

}  // namespace discwright::testing
