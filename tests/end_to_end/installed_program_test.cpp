// Tests of builds by an installed program, which works in a folder of its user.
#include <csignal>
#include <memory>

#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/installation.h"
#include "tests/end_to_end/small_disk.h"

namespace discwright::testing {

namespace {

class InstalledProgram : public ::testing::Test {
 protected:
  // Runs a build through the command in bin/, as users do.
  std::vector<std::string> Command(const std::vector<std::string>& arguments = {}) const {
    return Join({(prefix / "bin/discwright-build").string(), "-o", image.string()}, arguments);
  }
  Surroundings OfTheUser() const {
    return {.environment = {{"HOME", home.string()}, {"XDG_DATA_HOME", ""}, {"SOURCE_DATE_EPOCH", "1000000000"}}};
  }
  Outcome Build(const std::vector<std::string>& arguments = {}) const {
    return RunProgram(Command(arguments), OfTheUser());
  }
  void ExpectCompletedByTheNextStart() const {
    const Outcome outcome = Build({"--controls"});
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_THAT(LinesWith(outcome.err, "was changed here"), IsEmpty());
    const Outcome checked =
        RunProgram({"sha256sum", "--check", "--quiet", "installed.list"}, {.working_folder = users});
    EXPECT_EQ(checked.exit_code, 0) << checked.out << checked.err;
    EXPECT_THAT(PartsOf(users / "mkisofs"), IsEmpty());
  }
  // Replaces an installed file, and lists it like a new version does.
  void Release(const std::string& file, const std::string& content) const {
    WriteFile(installation.folder() / file, content);
    const Outcome listed = RunProgram({"sh", "-c", "cut -c67- installed.list | tr '\\n' '\\0' | xargs -0 sha256sum"},
                                      {.working_folder = installation.folder()});
    ASSERT_EQ(listed.exit_code, 0) << listed.err;
    WriteFile(installation.folder() / "installed.list", listed.out);
  }

  TemporaryFolder place;
  fs::path prefix = place / "pre fix";
  Installation installation{prefix};
  fs::path home = place / "Jörg's home";
  fs::path users = home / ".local/share/discwright";
  fs::path image = place / "rescue.iso";
};

constexpr const char* kProfile = "files/disks/winsetup/readme.txt";

}  // namespace

TEST_F(InstalledProgram, FirstBuild_WorksInTheFolderOfTheUserAndMakesTheImageOfAnyProgramFolder) {
  const auto installed = Fingerprint(prefix);
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr("remark: " + users.string() +
                                     ": the program is installed for all users, so your CDs are put together in this "
                                     "folder\n"));
  EXPECT_TRUE(fs::exists(users / "vexacd")) << "the workspace";
  EXPECT_TRUE(Fingerprint(prefix) == installed) << "the installed folder was changed";

  const ProgramCopy program(place / "program");
  const fs::path expected = place / "expected.iso";
  EXPECT_EQ(program.Build(Output(expected), OfTheUser()).exit_code, 0);
  EXPECT_EQ(ReadFile(image), ReadFile(expected));
}

TEST_F(InstalledProgram, FolderOfTheUser_HasEveryInstalledFileButTheFrontPrograms) {
  ASSERT_EQ(Build({"--controls"}).exit_code, 0);
  Contents expected = ContentsOf(installation.folder());
  for (const char* front : {"discwright", "discwright-build"}) expected.erase(front);
  Contents copied = ContentsOf(users);
  EXPECT_EQ(Difference(WithoutTimes(expected), WithoutTimes(copied)), "");
  for (const char* name : {"mkisofs", "CreateDsk", "dfl"}) {
    EXPECT_EQ(fs::status(users / name).permissions() & fs::perms::owner_exec, fs::perms::owner_exec) << name;
  }
}

TEST_F(InstalledProgram, DataHomeOfTheEnvironment_IsUsedIfItIsAbsolute) {
  Surroundings surroundings = OfTheUser();
  surroundings.environment[1].second = (place / "dätä home").string();
  EXPECT_EQ(RunProgram(Command({"--controls"}), surroundings).exit_code, 0);
  EXPECT_TRUE(fs::exists(place / "dätä home/discwright/installed.list"));
  surroundings.environment[1].second = "relative";
  surroundings.working_folder = place.path();
  EXPECT_EQ(RunProgram(Command({"--controls"}), surroundings).exit_code, 0);
  EXPECT_FALSE(fs::exists(place / "relative"));
  EXPECT_TRUE(fs::exists(users / "installed.list"));
}

TEST_F(InstalledProgram, SecondStart_ChangesNothingAndSaysNothing) {
  ASSERT_EQ(Build({"--controls"}).exit_code, 0);
  const auto before = Fingerprint(users);
  const Outcome outcome = Build({"--controls"});
  EXPECT_TRUE(Fingerprint(users) == before);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr("Your CDs are put together in " + users.string() + "."));
}

TEST_F(InstalledProgram, NewVersion_ReplacesFilesButThoseThatTheUserHasChanged) {
  ASSERT_EQ(Build({"--controls"}).exit_code, 0);
  WriteFile(users / "LICENSE", "mine");
  Release("LICENSE", "new");
  Release(kProfile, "new");
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(ReadFile(users / "LICENSE"), "mine");
  EXPECT_EQ(ReadFile(users / kProfile), "new");
  EXPECT_THAT(LinesWith(outcome.err, "was changed here"),
              ::testing::ElementsAre(::testing::StartsWith("remark: " + (users / "LICENSE").string() + ": ")));
  EXPECT_THAT(LinesWith(outcome.err, "installed anew"), SizeIs(1));
}

TEST_F(InstalledProgram, SystemOfTheUserForADisk_SurvivesANewVersionAndComesToTheCd) {
  ASSERT_EQ(Build({"--controls"}).exit_code, 0);
  const fs::path dos = users / "files/disks/vexasoftware_emm/dos";
  WriteFile(dos / "bootsect.bin", std::string(510, 'x') + "\x55\xAA");
  WriteFile(dos / "IO.SYS", "the system of the user");
  Release("files/disks/vexasoftware_emm/readme.txt", "new");
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(ReadFile(dos / "IO.SYS"), "the system of the user");
  EXPECT_THAT(ReadFile(users / "vexacd/boot/images/vexaemm.img"), HasSubstr("the system of the user"));
}

TEST_F(InstalledProgram, ManyStartsAtOnce_AllWork) {
  std::vector<std::unique_ptr<RunningProgram>> starts;
  for (int i = 0; i < 8; ++i) {
    starts.push_back(std::make_unique<RunningProgram>(Command({"--controls"}), OfTheUser()));
  }
  for (const auto& start : starts) {
    const Outcome outcome = start->Wait();
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  }
  ExpectCompletedByTheNextStart();
}

TEST_F(InstalledProgram, FolderThatCannotBeMade_IsAFailureThatNamesIt) {
  WriteFile(home / ".local/share", "a file");
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.err, HasSubstr("so it works in the folder " + users.string() + ". But "));
  EXPECT_THAT(outcome.err, HasSubstr("XDG_DATA_HOME"));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(InstalledProgram, FullDisk_IsAFailureAndTheNextStartCompletesTheFolder) {
  std::uintmax_t needed = 0;
  for (const auto& [name, content] : ContentsOf(installation.folder())) needed += content.size;
  const SmallDisk disk(home, needed + 4 * kMegabyte);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  disk.FillUpTo(300 << 10);
  const std::vector<fs::path> fillers(fs::directory_iterator(home), fs::directory_iterator{});
  const Outcome full = Build({"--controls"});
  EXPECT_EQ(full.exit_code, 1);
  EXPECT_THAT(full.err, HasSubstr("so it works in the folder " + users.string() + ". But "));
  EXPECT_THAT(full.err, HasSubstr("No space left on device"));
  for (const fs::path& filler : fillers) fs::remove(filler);
  ExpectCompletedByTheNextStart();
}

// The program is killed at several of the calls that write a file or give it its name.
TEST_F(InstalledProgram, StartThatIsKilledMidway_IsCompletedByTheNextOne) {
  if (RunProgram({"strace", "-o", "/dev/null", "true"}).exit_code != 0) GTEST_SKIP() << "tracing is not permitted";
  for (const std::string call : {"copy_file_range", "rename"}) {
    for (const std::string number : {"1", "2", "10", "20"}) {
      fs::remove_all(home);
      const Outcome killed = RunProgram(Join({"strace", "-f", "-o", "/dev/null", "-e", "trace=" + call, "-e",
                                              "inject=" + call + ":signal=KILL:when=" + number},
                                             Command({"--controls"})),
                                        OfTheUser());
      EXPECT_EQ(killed.killed_by, SIGKILL) << call << " " << number;
      EXPECT_FALSE(fs::exists(users / "installed.list")) << call << " " << number;
      ExpectCompletedByTheNextStart();
    }
  }
}

}  // namespace discwright::testing
