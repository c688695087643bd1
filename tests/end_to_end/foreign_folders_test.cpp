// Tests that no build empties a folder of the user: one with the name of the workspace, one behind a link, one that is
// mounted, or one in a folder that is not the program's.
#include <sys/mount.h>

#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/left_files.h"

namespace discwright::testing {

namespace {

// A folder of the user is shown at another place while this exists.
class BoundFolder {
 public:
  BoundFolder(const fs::path& folder, fs::path place) : place_(std::move(place)) {
    fs::create_directories(place_);
    is_mounted_ = mount(folder.c_str(), place_.c_str(), nullptr, MS_BIND, nullptr) == 0;
  }
  ~BoundFolder() {
    if (is_mounted_) umount2(place_.c_str(), MNT_DETACH);
  }
  BoundFolder(const BoundFolder&) = delete;
  BoundFolder& operator=(const BoundFolder&) = delete;
  bool is_mounted() const { return is_mounted_; }

 private:
  fs::path place_;
  bool is_mounted_ = false;
};

class ForeignFolders : public BuildTest {
 protected:
  void SetUp() override { WriteFile(photos / "photo.jpg", "mine"); }

  void ExpectUntouched(const Outcome& outcome, int exit_code, const std::string& message) const {
    EXPECT_EQ(outcome.exit_code, exit_code);
    EXPECT_THAT(outcome.err, HasSubstr(message));
    EXPECT_EQ(ReadFile(photos / "photo.jpg"), "mine");
    EXPECT_TRUE(NoImageAt(image));
  }

  const fs::path photos = place / "photos";
};

}  // namespace

TEST_F(ForeignFolders, FolderWithTheNameOfTheWorkspaceOrTheStagingFolder_IsNotEmptied) {
  for (const char* name : {"vexacd", "advtemp"}) {
    WriteFile(program / name / "photo.jpg", "mine");
    ExpectUntouched(Build(), 1,
                    "The folder " + (program / name).string() +
                        " is not known to be made by this program in this place, and a build would delete everything "
                        "in it.\nMove it to another place or delete it, and start the build again.\n");
    EXPECT_EQ(ReadFile(program / name / "photo.jpg"), "mine");
    fs::remove_all(program / name);
  }
  EXPECT_EQ(Build().exit_code, 0);
}

TEST_F(ForeignFolders, FolderThatTookThePlaceOfTheWorkspace_IsNotEmptied) {
  ASSERT_EQ(Build().exit_code, 0);
  fs::remove(image);
  fs::remove_all(program / "vexacd");
  WriteFile(program / "vexacd" / "photo.jpg", "mine");
  ExpectUntouched(Build(), 1, "is not known to be made by this program");
  EXPECT_EQ(ReadFile(program / "vexacd" / "photo.jpg"), "mine");
}

TEST_F(ForeignFolders, LinkThatLeadsIntoTheWorkspace_IsRefusedAsASource) {
  WriteLeftFile(program, "vexacd/vexa/mine/a.txt", "a");
  fs::create_directory_symlink(program / "vexacd" / "vexa", place / "link");
  for (const char* source : {"link", "link/mine"}) {
    ExpectUntouched(Build(Utilities(place / source)), 3,
                    "The selected location is in " + (program / "vexacd").string() + ", which every build empties !");
  }
  EXPECT_EQ(ReadFile(program / "vexacd/vexa/mine/a.txt"), "a");
}

TEST_F(ForeignFolders, LinkThatLeadsIntoTheWorkspace_IsRefusedForTheImage) {
  WriteLeftFile(program, "vexacd/vexa/a.txt", "a");
  fs::create_directory_symlink(program / "vexacd" / "vexa", place / "link");
  const Outcome outcome = program.Build(Output(place / "link" / "rescue.iso"));
  ExpectUntouched(outcome, 3, ", which every build empties !");
}

TEST_F(ForeignFolders, LinkInPlaceOfTheWorkspace_IsDeletedWithoutItsTarget) {
  fs::create_directory_symlink(photos, program / "vexacd");
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_FALSE(fs::is_symlink(program / "vexacd"));
  EXPECT_EQ(ContentsOf(photos).size(), 1U);
  EXPECT_FALSE(ReadWithBsdtar(image).contains("photo.jpg"));
}

TEST_F(ForeignFolders, FolderMountedInOrAtTheWorkspace_IsNotEmptied) {
  WriteLeftFile(program, "vexacd/deep/a.txt", "a");
  for (const char* place_in_program : {"vexacd/deep/users", "vexacd", "advtemp"}) {
    const BoundFolder bound(photos, program / place_in_program);
    if (!bound.is_mounted()) GTEST_SKIP() << "mounting is not permitted";
    ExpectUntouched(Build(), 1,
                    "The folder " + (program / place_in_program).string() +
                        " is a mount point, and a build would delete everything in it.\nUnmount it, and start the "
                        "build again.\n");
  }
  EXPECT_EQ(Build().exit_code, 0);
}

// The workspace of the copy is refused, because it might as well be any other folder. The message says what to do.
TEST_F(ForeignFolders, ProgramFolderThatWasCopiedWithItsWorkspace_AsksForItsDeletion) {
  ASSERT_EQ(Build().exit_code, 0);
  fs::remove(image);
  const fs::path copy = place / "copy";
  fs::copy(program.folder(), copy, fs::copy_options::recursive);
  const std::vector<std::string> command = {(copy / "discwright-build").string(), "-o", image.string()};
  ExpectUntouched(RunProgram(command), 1, "is not known to be made by this program in this place");
  fs::remove_all(copy / "vexacd");
  EXPECT_EQ(RunProgram(command).exit_code, 0);
}

TEST_F(ForeignFolders, LinksWithTheNamesOfFilesThatABuildWrites_AreReplacedAndTheirTargetsStay) {
  WriteFile(photos / "keyfile2.txt", "[Win2K]\r\nOwnerName=Ann\r\n");
  const std::vector<std::string> written = {"makecd.bat",    "mkisofs.log", "discwright.tmp", "vexacd.own",
                                            "vexastart.img", "vexanet.img", "keyfile.txt"};
  for (const std::string& name : written) {
    WriteFile(photos / name, "mine");
    fs::create_symlink(photos / name, program / name);
  }
  fs::create_symlink(photos / "keyfile2.txt", program / "keyfile2.txt");
  const Outcome outcome = Build({"--set", "FrmWin2KInfo.TxtOwner=Jo"});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  for (const std::string& name : written) {
    EXPECT_EQ(ReadFile(photos / name), "mine") << name;
    EXPECT_FALSE(fs::is_symlink(program / name)) << name;
  }
  EXPECT_THAT(ReadFile(photos / "keyfile2.txt"), HasSubstr("OwnerName=Ann"));
}

TEST_F(ForeignFolders, SessionThatIsKeptBehindALink_StaysThere) {
  fs::create_symlink(photos / "session.ini", place / "link.ini");
  for (const char* value : {"1", "0"}) {
    const Outcome outcome =
        Build({"--save-session", (place / "link.ini").string(), "--set", std::string("ChkSelectDrivers=") + value});
    ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_TRUE(fs::is_symlink(place / "link.ini"));
    EXPECT_THAT(ReadFile(photos / "session.ini"), HasSubstr(std::string("= ") + value + "\r\n"));
  }
}

TEST_F(ForeignFolders, SessionOrPasswordInTheWorkspace_IsRefused) {
  WriteLeftFile(program, "vexacd/mine.ini", "[VexaCD]\r\n");
  const std::string file = (program / "vexacd" / "mine.ini").string();
  for (const char* option : {"--password-file", "--save-session"}) {
    ExpectUntouched(Build({option, file}), 2,
                    file + " is in " + (program / "vexacd").string() + ", which every build empties");
  }
  EXPECT_EQ(ReadFile(file), "[VexaCD]\r\n");
}

TEST_F(ForeignFolders, WithoutProc_TheProgramsOwnFolderIsUsedAndNotTheCurrentOne) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer needs /proc";
#endif
  WriteFile(photos / "vexacd" / "photo.jpg", "mine");
  const std::vector<std::string> hide_proc = {"unshare", "-m", "sh", "-c", "mount -t tmpfs none /proc && exec \"$@\"",
                                              "sh"};
  if (RunProgram(Join(hide_proc, {"true"})).exit_code != 0) GTEST_SKIP() << "mounting is not permitted";
  fs::create_symlink(program / "discwright-build", place / "link");
  for (const std::string& started :
       {(program / "discwright-build").string(), std::string("../program/discwright-build"), std::string("../link")}) {
    const Outcome outcome = RunProgram(Join(hide_proc, {started, "-o", image.string()}), {.working_folder = photos});
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_TRUE(fs::remove(image));
    EXPECT_EQ(ReadFile(photos / "vexacd" / "photo.jpg"), "mine");
  }
}

}  // namespace discwright::testing
