// Tests of the optimised image: duplicate files are stored once, and nothing else changes.
#include "tests/end_to_end/build_test.h"
#include "tools/temporary_link.h"

namespace discwright::testing {

namespace {

constexpr std::uintmax_t kFileSize = 3'000'000;

class OptimisedImage : public BuildTest {
 protected:
  void SetUp() override {
    const std::string large(kFileSize, 'x');
    WriteFile(place / "my tools" / "i386" / "DRIVER.CAB", large);
    WriteFile(place / "my tools" / "driver.cab", large);
    WriteFile(place / "my tools" /
                  "\xC3\xBC"
                  "bung" /
                  "copy of driver.cab",
              large);
    WriteFile(place / "my tools" / "almost.cab", large.substr(1) + "y");
    WriteFile(place / "my tools" / "empty", "");
    sources_ = Fingerprint(place / "my tools");
  }

  Outcome BuildOptimised(const char* optimise) const {
    return Build(Join({"--set", std::string("ChkOptimizeISO=").append(optimise)}, Utilities(place / "my tools")));
  }
  // Expects an image, and one warning, which is about dfl.
  static void ExpectTold(const Outcome& outcome) {
    EXPECT_EQ(outcome.exit_code, 4) << outcome.err;
    EXPECT_THAT(LinesWith(outcome.err, "warning: "), SizeIs(1));
    EXPECT_THAT(outcome.err,
                ::testing::ContainsRegex("mkisofs\\.log: dfl.*duplicate files were stored more than once"));
  }
  std::string MasteringLog() const { return ReadFile(program / "mkisofs.log"); }

  std::map<std::string, std::string> sources_;
};

}  // namespace

TEST_F(OptimisedImage, Duplicates_AreStoredOnceAndTheFilesStayTheSame) {
  ASSERT_EQ(BuildOptimised("0").exit_code, 0);
  const Contents plain = WithoutTimes(ReadWithBsdtar(image));
  const std::uintmax_t plain_size = fs::file_size(image);
  const Outcome outcome = BuildOptimised("1");
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(Difference(plain, WithoutTimes(ReadWithBsdtar(image))), "");
  EXPECT_GE(plain_size - fs::file_size(image), 2 * kFileSize);
  EXPECT_LT(plain_size - fs::file_size(image), 3 * kFileSize);
  EXPECT_THAT(MasteringLog(), HasSubstr("Scanning "));
  EXPECT_THAT(MasteringLog(), HasSubstr("Calculating MD5 digests"));
  EXPECT_THAT(MasteringLog(), HasSubstr("Finding duplicate files"));
  EXPECT_EQ(Fingerprint(place / "my tools"), sources_);
}

TEST_F(OptimisedImage, MissingLinker_IsReportedAndTheImageIsMade) {
  ASSERT_EQ(BuildOptimised("0").exit_code, 0);
  const std::uintmax_t plain_size = fs::file_size(image);
  fs::remove(program / "dfl");
  ExpectTold(BuildOptimised("1"));
  EXPECT_EQ(fs::file_size(image), plain_size);
  EXPECT_THAT(MasteringLog(), HasSubstr("dfl"));
}

TEST_F(OptimisedImage, KilledLinker_IsReportedAndTheImageIsMade) {
  program.ReplaceProgram("dfl", "echo \"Scanning $1\"; kill -KILL $$\n");
  ExpectTold(BuildOptimised("1"));
  EXPECT_EQ(ReadWithBsdtar(image).size(), ReadWithXorriso(image).size());
}

TEST_F(OptimisedImage, LinkThatAKilledLinkerLeaves_IsNotedAndNotOnTheDisc) {
  const std::string link = tools::TemporaryLinkName(0);
  program.ReplaceProgram("dfl", "ln \"$1/vexa/driver.cab\" \"$1/vexa/" + link + "\"; kill -KILL $$\n");
  const Outcome outcome = BuildOptimised("1");
  EXPECT_EQ(outcome.exit_code, 4) << outcome.err;
  EXPECT_THAT(outcome.err,
              HasSubstr("warning: " + (program / "mkisofs.log").string() + ": mkisofs: vexacd/vexa/" + link));
  EXPECT_THAT(outcome.err, HasSubstr("duplicate files were stored more than once"));
  const Contents contents = ReadWithBsdtar(image);
  EXPECT_TRUE(contents.contains("vexa/driver.cab"));
  EXPECT_FALSE(contents.contains("vexa/" + link));
}

TEST_F(OptimisedImage, LinkerThatFails_IsReported) {
  program.ReplaceProgram("dfl", "echo 'dfl: out of luck' >&2; exit 3\n");
  ExpectTold(BuildOptimised("1"));
}

TEST_F(OptimisedImage, LinkerThatIsSlowWithItsLastLine_IsNotReported) {
  program.ReplaceProgram("dfl", "printf '0 files lin'; sleep 1; printf 'ked, 0 bytes saved'; sleep 1; echo\n");
  const Outcome outcome = BuildOptimised("1");
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
}

}  // namespace discwright::testing
