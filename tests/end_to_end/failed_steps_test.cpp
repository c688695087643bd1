// Tests of builds in which a called program fails: the build prints the cause and leaves no image.
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

class FailedSteps : public BuildTest {
 protected:
  // Runs a build that must fail. Returns its standard error.
  std::string Failed(const std::vector<std::string>& choices = {}) const {
    const Outcome outcome = Build(choices);
    EXPECT_EQ(outcome.exit_code, 1) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(PartsOf(image), IsEmpty());
    return outcome.err;
  }
};

}  // namespace

TEST_F(FailedSteps, MissingBootLoader_IsReportedFromTheLog) {
  fs::remove(program / "files" / "vexacd" / "boot" / "loader.bin");
  const std::string told = Failed();
  EXPECT_THAT(told, HasSubstr("boot/loader.bin"));
  EXPECT_THAT(told, HasSubstr("Operation Aborted"));
  EXPECT_THAT(ReadFile(program / "mkisofs.log"), HasSubstr("boot/loader.bin"));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, MissingTemplateTree_IsReported) {
  fs::remove_all(program / "files" / "vexacd");
  EXPECT_THAT(Failed(), HasSubstr("warning: " + (program / "files" / "vexacd").string()));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, MissingMasteringProgram_IsReportedFromTheLog) {
  fs::remove(program / "mkisofs");
  EXPECT_THAT(Failed(), HasSubstr("mkisofs: not found"));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, MasteringProgramThatMayNotBeRun_IsReportedFromTheLog) {
  fs::permissions(program / "mkisofs", fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_THAT(Failed(), HasSubstr("mkisofs: Permission denied"));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, MasteringProgramKilled_IsReportedFromTheLog) {
  program.ReplaceProgram("mkisofs", "echo so far so good\nkill -KILL $$\n");
  const std::string told = Failed();
  EXPECT_THAT(told, HasSubstr("so far so good"));
  EXPECT_THAT(told, HasSubstr("The mastering ended with exit code 137."));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, MasteringFailsWithAnOlderImageAtThePlace_OldImageStaysAndTheBuildFails) {
  WriteFile(image, OlderImage());
  program.ReplaceProgram("mkisofs", "echo no luck today >&2\nexit 3\n");
  EXPECT_EQ(Failed(),
            "1/5 Creating Vexa Boot Disks\n"
            "2/5 Inserting Windows 2000/XP/2003 Setup Files: not chosen\n"
            "3/5 Inserting Windows 9x Setup Files: not chosen\n"
            "4/5 Adding Vexa Utilities/Advanced Tools\n"
            "5/5 Creating Final ISO File\n"
            "The end of " +
                (program / "mkisofs.log").string() +
                ":\n"
                "  MkISOFS.EXE Log File\n"
                "  no luck today\n"
                "  The mastering ended with exit code 3.\n"
                "The mastering ended with exit code 3. Do not use the file at " +
                image.string() + ": this build did not make it, or did not finish it.\n");
  EXPECT_TRUE(ReadFile(image) == OlderImage());
}

TEST_F(FailedSteps, MissingDiskProgram_IsReported) {
  fs::remove(program / "CreateDsk");
  EXPECT_THAT(Failed(), HasSubstr("warning: "));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, DiskProgramFails_IsReportedWithItsOutput) {
  program.ReplaceProgram("CreateDsk", "echo the dog ate it >&2\nexit 1\n");
  const std::string told = Failed();
  EXPECT_THAT(told, HasSubstr("the dog ate it"));
  EXPECT_THAT(told, ::testing::EndsWith("\nFatal Error: The creation the Boot image \"Vexa Rescue Software\" failed, "
                                        "operation halted\n"));
  EXPECT_THAT(LinesWith(told, "operation halted"), SizeIs(1));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, NameLongerThanADiscCanHold_IsReportedFromTheLog) {
  const std::string name(208, 'n');
  WriteFile(place / "tools" / name, "content");
  EXPECT_THAT(Failed(Utilities(place / "tools")), HasSubstr("vexacd/vexa/" + name));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, UtilitiesOfTwoGigabytes_EndTheBuildBeforeTheyAreCopied) {
  WriteFile(place / "tools" / "large.bin", "");
  fs::resize_file(place / "tools" / "large.bin", 1ULL << 31U);  // a sparse file, which takes no disk space
  const std::string told = Failed(Utilities(place / "tools"));
  EXPECT_THAT(told, HasSubstr("warning: " + (place / "tools").string() + ": "));
  EXPECT_THAT(told,
              HasSubstr("Fatal Error: A fatal Error occured while integrating the Vexa Utilities, operation halted"));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(FailedSteps, FailedBuild_NextBuildSucceeds) {
  program.ReplaceProgram("mkisofs", "exit 1\n");
  Failed();
  program.RestoreProgram("mkisofs");
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
}

}  // namespace discwright::testing
