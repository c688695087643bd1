// Tests of programs that may use only so much memory, or write only so large files.
#include "tests/end_to_end/build_test.h"
#include "tests/support/shell.h"

namespace discwright::testing {

namespace {

using ::testing::AnyOf;
using ::testing::Not;

constexpr const char* kMayNotGrow = "the file may not grow any more";

class Limits : public BuildTest {
 protected:
  void SetUp() override {
    WriteFile(place / "tree" / "a", std::string(100'000, 'a'));
    WriteFile(place / "tree" / "b", std::string(100'000, 'a'));
  }
  // Runs a command line of the shell in the program folder, with a limit as the shell's own command sets it.
  Outcome RunWith(const std::string& limit, const std::string& command) const {
    return RunProgram({"/bin/sh", "-c", limit + "; exec " + command}, {.working_folder = program.folder()});
  }
  std::string Mkisofs() const { return "./mkisofs -output " + Quote(image) + " " + Quote(place / "tree"); }
};

}  // namespace

TEST_F(Limits, MasteringBeyondTheLargestFile_IsNoFullDiskAndLeavesNoPart) {
  for (const char* limit : {"ulimit -f 20", "ulimit -f 300"}) {
    const Outcome outcome = RunWith(limit, Mkisofs());
    EXPECT_EQ(outcome.exit_code, 1) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(image.string() + ": " + kMayNotGrow));
    EXPECT_THAT(outcome.err, Not(HasSubstr("No space left on device")));
    EXPECT_TRUE(NoImageAt(image));
  }
}

TEST_F(Limits, FloppyImageBeyondTheLargestFile_IsReportedAndLeavesNothing) {
  const Outcome outcome = RunWith("ulimit -f 10", "./CreateDsk -t 144 vexasoftware");
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.err, HasSubstr(kMayNotGrow));
  EXPECT_FALSE(fs::exists(program / "vexastart.img"));
}

TEST_F(Limits, BuildThatMayWriteNoFile_SaysSo) {
  // Standard error is a file here, which may not grow either, so a pipe stands between them.
  const Outcome outcome = RunProgram({"/bin/sh", "-c",
                                      "{ (ulimit -f 0; exec " + Quote(program / "discwright-build") + " -o " +
                                          Quote(image) + "); echo $?; } 2>&1 | cat"});
  EXPECT_THAT(outcome.out, HasSubstr(kMayNotGrow));
  EXPECT_TRUE(outcome.out.ends_with("\n3\n")) << outcome.out;
}

TEST_F(Limits, ImageBeyondTheLargestFile_IsNotReportedAsAFullDisk) {
  const Outcome outcome = RunWith("ulimit -f 6000", "./discwright-build -o " + Quote(image));
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.err, HasSubstr(kMayNotGrow));
  EXPECT_THAT(outcome.err, Not(HasSubstr("Not enough free space")));
  EXPECT_TRUE(NoImageAt(image));
}

// Goes through the limits from one that even the system's loader finds too small to one that is enough.
TEST_F(Limits, LittleMemory_EndsEveryProgramWithASentenceAndWithoutAPart) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer takes more memory than any limit leaves";
#endif
  constexpr int kTooLittleToLoad = 127;
  for (const std::string& command :
       {Mkisofs(), "./dfl " + Quote(place / "tree") + " link", std::string("./CreateDsk -t 288 netaccess"),
        "./discwright-build --quiet -o " + Quote(image)}) {
    bool has_lacked_memory = false;
    for (int kilobytes = 9'000; kilobytes < 40'000; kilobytes += kilobytes < 13'000 ? 100 : 3'000) {
      const Outcome outcome = RunWith("ulimit -v " + std::to_string(kilobytes), command);
      if (outcome.exit_code == kTooLittleToLoad) continue;
      ASSERT_THAT(outcome.exit_code, AnyOf(0, 1, 3)) << command << " with " << kilobytes << "\n" << outcome.err;
      if (outcome.exit_code == 0) {
        fs::remove(image);
        continue;
      }
      EXPECT_THAT(outcome.err, Not(IsEmpty())) << command;
      EXPECT_TRUE(NoImageAt(image)) << command << " with " << kilobytes;
      // The second text is the system's. Which of them comes depends on where the memory ends.
      for (const char* text : {"there is not enough memory", "Cannot allocate memory"}) {
        has_lacked_memory = has_lacked_memory || outcome.err.find(text) != std::string::npos;
      }
    }
    EXPECT_TRUE(has_lacked_memory) << command;
  }
}

TEST_F(Limits, HugeSessionOrPasswordFile_IsRefusedByItsSize) {
  const fs::path huge = place / "huge";
  WriteFile(huge, "");
  fs::resize_file(huge, 200'000'000'000);
  for (const char* option : {"--session", "--password-file"}) {
    const Outcome outcome = Build({option, huge.string()});
    EXPECT_EQ(outcome.exit_code, 2) << option;
    EXPECT_THAT(outcome.err, HasSubstr("it is too large: 200000000000 bytes; at most 16777216 bytes are possible"));
  }
}

TEST_F(Limits, EndlessFirstLineOfStandardInput_IsNoPassword) {
  const Outcome outcome = RunProgram(
      {"/bin/sh", "-c",
       "yes | tr -d '\\n' | " + Quote(program / "discwright-build") + " --password-file - -o " + Quote(image)});
  EXPECT_EQ(outcome.exit_code, 2);
  EXPECT_THAT(outcome.err, HasSubstr("its first line is too long for a password: at most 4096 bytes are possible"));
}

}  // namespace discwright::testing
