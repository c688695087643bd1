// Duplicate files are stored once when that is chosen, and nothing else changes.
#include "tests/end_to_end/build_test.h"

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

TEST_F(OptimisedImage, LinkerThatIsMissing_CostsOnlyTheSaving) {
  ASSERT_EQ(BuildOptimised("0").exit_code, 0);
  const std::uintmax_t plain_size = fs::file_size(image);
  fs::remove(program / "dfl");
  EXPECT_EQ(BuildOptimised("1").exit_code, 0);
  EXPECT_EQ(fs::file_size(image), plain_size);
  EXPECT_THAT(MasteringLog(), HasSubstr("dfl"));
}

TEST_F(OptimisedImage, LinkerThatIsKilled_CostsOnlyTheSaving) {
  program.ReplaceProgram("dfl", "echo \"Scanning $1\"; kill -KILL $$\n");
  const Outcome outcome = BuildOptimised("1");
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(ReadWithBsdtar(image).size(), ReadWithXorriso(image).size());
}

}  // namespace discwright::testing
