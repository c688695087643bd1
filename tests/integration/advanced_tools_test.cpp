// Tests of the step that adds the recovery tools.
#include "integration/advanced_tools.h"

#include <cstdint>
#include <limits>

#include "tests/integration/step_fixture.h"

namespace discwright::integration {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class AddAdvToolsTest : public testing::StepFixture {
 protected:
  AddAdvToolsTest() {
    MakeToolCd("E:", "loader of i386 and I386");
    MakeToolCd("F:", "loader of i386 and I386");
    host.AddFile("E:\\AUTORUN.INF", "ERD Commander");
    host.AddFile("F:\\AUTORUN.INF", "BlueCon");
    host.AddFile("C:\\Discwright\\vexacd\\I386\\SETUPLDR.BIN", "of Windows, i386");
  }

  void MakeToolCd(const std::string& root, const std::string& loader) {
    host.AddFile(root + "\\I386\\SETUPLDR.BIN", loader, true);
    host.AddFile(root + "\\I386\\TXTSETUP.SIF", "path = \\i386, \\I386", true);
    host.AddFile(root + "\\I386\\SYSTEM32\\OTHER.DLL", "i386", true);
  }
  void Add(bool erd_commander, bool bluecon) {
    AddAdvTools(context, {.GetErdC = erd_commander, .GetBCon = bluecon, .ErdCLoc = "E:", .BConLoc = "F:"});
  }
};

TEST_F(AddAdvToolsTest, NothingChosen_DoesNothing) {
  const std::vector<std::string> files = host.Files();
  Add(false, false);
  EXPECT_EQ(host.Files(), files);
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_THAT(captions, IsEmpty());
}

TEST_F(AddAdvToolsTest, ErdCommander_GetsAFolderOfItsOwnAndBothSpellingsPatchedInItsLoader) {
  Add(true, false);
  EXPECT_EQ(OnCd("ERDC\\SETUPLDR.BIN"), "loader of erdc and erdc");
  EXPECT_EQ(OnCd("ERDC\\TXTSETUP.SIF"), "path = \\erdc, \\I386");
  EXPECT_EQ(OnCd("ERDC\\SYSTEM32\\OTHER.DLL"), "i386");
  EXPECT_EQ(OnCd("boot\\images\\erdc.bin"), "sector of ERDC");
  EXPECT_EQ(OnCd("boot\\images\\oobc.bin"), "<missing>");
  EXPECT_EQ(OnCd("AUTORUN.INF"), "ERD Commander");
  EXPECT_EQ(OnCd("I386\\SETUPLDR.BIN"), "of Windows, i386");
  EXPECT_EQ(host.RealName("C:\\Discwright\\vexacd\\ERDC"), "ERDC");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
  ExpectNoTrouble();
}

TEST_F(AddAdvToolsTest, BlueCon_HasOnlyTheLowerCaseNamePatchedInItsLoader) {
  Add(false, true);
  EXPECT_EQ(OnCd("OOBC\\SETUPLDR.BIN"), "loader of oobc and I386");
  EXPECT_EQ(OnCd("OOBC\\TXTSETUP.SIF"), "path = \\oobc, \\I386");
  EXPECT_EQ(OnCd("boot\\images\\oobc.bin"), "sector of OOBC");
  EXPECT_EQ(OnCd("boot\\images\\erdc.bin"), "<missing>");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
  ExpectNoTrouble();
}

TEST_F(AddAdvToolsTest, BothTools_StandSideBySideAndTheSecondOverwritesFilesOfTheFirst) {
  Add(true, true);
  EXPECT_EQ(OnCd("ERDC\\SETUPLDR.BIN"), "loader of erdc and erdc");
  EXPECT_EQ(OnCd("OOBC\\SETUPLDR.BIN"), "loader of oobc and I386");
  EXPECT_EQ(OnCd("boot\\images\\erdc.bin"), "sector of ERDC");
  EXPECT_EQ(OnCd("boot\\images\\oobc.bin"), "sector of OOBC");
  EXPECT_EQ(OnCd("AUTORUN.INF"), "BlueCon");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
  EXPECT_THAT(captions, ElementsAre("Adding ERD Commander 2002/2003 Files", "Adding O&&O BlueCon XXL Files"));
  EXPECT_EQ(repainted.front(), "Adding ERD Commander 2002/2003 Files");
  ExpectNoTrouble();
}

TEST_F(AddAdvToolsTest, BootSectorIsCopiedBeforeTheTool) {
  Add(false, true);
  EXPECT_THAT(host.calls.at(0), HasSubstr("oobc.bin"));
}

TEST_F(AddAdvToolsTest, StagingFolderThatCannotBeListed_IsNoted) {
  host.shell_answers = {{}, {1, false}};
  host.FailOn("ListFolder", "Discwright\\advtemp", host::ErrorClass::kNotReady, "Input/output error");
  Add(false, true);
  EXPECT_THAT(Notes(), HasSubstr("C:\\Discwright\\advtemp: could not be listed: what is left in it is missing from the "
                                 "CD: Input/output error\n"));
}

TEST_F(AddAdvToolsTest, StagingFolder_HasItsMarkWhileAToolIsCopied) {
  bool has_mark = false;
  host.FailOn("CopyFileWithProgress", "TXTSETUP.SIF", host::ErrorClass::kDiskFull);
  Add(true, false);
  for (const std::string& call : host.calls)
    has_mark = has_mark || call == "WriteWholeFile C:\\Discwright\\advtemp.own";
  EXPECT_TRUE(has_mark);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp.own"));
}

TEST_F(AddAdvToolsTest, SourcesAndShippedSectors_StayAsTheyWere) {
  Add(true, true);
  EXPECT_EQ(host.Content("E:\\I386\\SETUPLDR.BIN"), "loader of i386 and I386");
  EXPECT_EQ(host.Content("F:\\I386\\TXTSETUP.SIF"), "path = \\i386, \\I386");
  EXPECT_TRUE(host.Find("E:\\I386\\SETUPLDR.BIN")->read_only);
  EXPECT_EQ(host.Content("C:\\Discwright\\files\\bootsect\\erdc.bin"), "sector of I386");
}

TEST_F(AddAdvToolsTest, LoaderThatNamesItsFolderInUpperCaseOnly_IsPatchedForErdCommander) {
  MakeToolCd("E:", "loader of I386");
  Add(true, false);
  EXPECT_EQ(OnCd("ERDC\\SETUPLDR.BIN"), "loader of erdc");
  ExpectNoTrouble();
}

TEST_F(AddAdvToolsTest, LoaderThatNamesItsFolderInUpperCaseOnly_StaysForBlueConAndIsNoted) {
  MakeToolCd("F:", "loader of I386");
  Add(false, true);
  EXPECT_EQ(OnCd("OOBC\\SETUPLDR.BIN"), "loader of I386");
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(Notes(),
            "C:\\Discwright\\advtemp\\I386\\SETUPLDR.BIN: was not patched to use the new folder name: on the CD, O&O "
            "BlueCon may start with the files of Windows Setup\n");
}

TEST_F(AddAdvToolsTest, FileNamedLikeOneOfTheCd_OverwritesItWithoutAQuestion) {
  host.AddFile("C:\\Discwright\\vexacd\\AUTORUN.INF", "of the template", true);
  Add(true, false);
  EXPECT_EQ(OnCd("AUTORUN.INF"), "ERD Commander");
}

TEST_F(AddAdvToolsTest, FolderNamedLikeOneOfTheCd_JoinsIt) {
  host.AddFile("E:\\boot\\more.bin", "more");
  Add(true, false);
  EXPECT_EQ(OnCd("boot\\more.bin"), "more");
  EXPECT_EQ(OnCd("boot\\images\\erdc.bin"), "sector of ERDC");
}

TEST_F(AddAdvToolsTest, ShellThatLeavesFoldersBehind_IsCalledAgainForTheirContent) {
  host.shell_joins_folders = false;
  host.AddFile("C:\\Discwright\\vexacd\\boot\\deep\\old.bin", "old");
  host.AddFile("C:\\Discwright\\vexacd\\boot\\more.bin", "to be overwritten");
  host.AddFile("E:\\boot\\more.bin", "more");
  host.AddFile("E:\\boot\\deep\\new.bin", "new");
  Add(true, false);
  EXPECT_EQ(OnCd("boot\\more.bin"), "more");
  EXPECT_EQ(OnCd("boot\\deep\\new.bin"), "new");
  EXPECT_EQ(OnCd("boot\\deep\\old.bin"), "old");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
  ExpectNoTrouble();
}

TEST_F(AddAdvToolsTest, FileNamedLikeAFolderOfTheCd_IsNotedAndAllElseIsMoved) {
  host.AddFile("E:\\boot", "a file");
  Add(true, false);
  EXPECT_EQ(OnCd("boot\\images\\erdc.bin"), "sector of ERDC");
  EXPECT_EQ(OnCd("ERDC\\SETUPLDR.BIN"), "loader of erdc and erdc");
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_THAT(Notes(), HasSubstr("advtemp\\boot: could not be moved onto the CD"));
}

TEST_F(AddAdvToolsTest, ToolCdThatHasTheToolsNewName_IsNotRenamedAndIsNoted) {
  for (const char* name : {"E:\\ERDC\\OWN.TXT", "E:\\erdc"}) {
    notes = {};
    host.nodes.erase(testing::FakeHost::Key("C:\\Discwright\\vexacd\\ERDC"));
    host.nodes.erase(testing::FakeHost::Key("E:\\ERDC"));
    host.AddFile(name, "own");
    Add(true, false);
    EXPECT_EQ(OnCd(std::string(name).substr(3)), "own");
    EXPECT_EQ(OnCd("ERDC\\SETUPLDR.BIN"), "<missing>");
    EXPECT_EQ(OnCd("I386\\SETUPLDR.BIN"), "loader of erdc and erdc");
    EXPECT_THAT(Notes(),
                HasSubstr("advtemp\\I386: could not be renamed to ERDC (183): ERD Commander cannot be started"));
    EXPECT_EQ(cancelled, 0);
    host.nodes.erase(testing::FakeHost::Key("E:\\ERDC\\OWN.TXT"));
    host.nodes.erase(testing::FakeHost::Key("C:\\Discwright\\vexacd\\ERDC\\OWN.TXT"));
  }
}

TEST_F(AddAdvToolsTest, NamesShownInLowerCase_AreStoredInUpperCase) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("G:\\i386\\setupldr.bin", "i386");
  host.AddFile("G:\\i386\\txtsetup.sif", "i386");
  host.AddFile("G:\\readme.txt", "read me");
  AddAdvTools(context, {.GetErdC = true, .ErdCLoc = "G:"});
  EXPECT_EQ(OnCd("ERDC\\SETUPLDR.BIN"), "erdc");
  EXPECT_EQ(host.RealName("C:\\Discwright\\vexacd\\ERDC\\setupldr.bin"), "SETUPLDR.BIN");
  EXPECT_EQ(host.RealName("C:\\Discwright\\vexacd\\readme.txt"), "README.TXT");
  ExpectNoTrouble();
}

TEST_F(AddAdvToolsTest, Shell_IsAskedToRenameEachFolderAndThenToMoveEverything) {
  int handle = 0;
  main.window = &handle;
  Add(true, true);
  std::vector<std::string> asked;
  for (const host::ShellOperation& operation : host.shell_operations) {
    asked.push_back(operation.source + " -> " + operation.destination);
    EXPECT_EQ(operation.owner_window, &handle);
    EXPECT_EQ(operation.flags, 20);
    EXPECT_EQ(operation.title, "");
  }
  EXPECT_THAT(asked, ElementsAre("C:\\Discwright\\advtemp\\I386 -> C:\\Discwright\\advtemp\\ERDC",
                                 "C:\\Discwright\\advtemp\\I386 -> C:\\Discwright\\advtemp\\OOBC",
                                 "C:\\Discwright\\advtemp\\*.* -> C:\\Discwright\\vexacd"));
}

TEST_F(AddAdvToolsTest, RenameOrMoveThatFails_IsNotedAndTheStepGoesOn) {
  host.shell_answers = {{5, false}, {0, true}};
  Add(true, false);
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(cancelled, 0);
  EXPECT_THAT(Notes(),
              AllOf(HasSubstr("advtemp\\I386: could not be renamed to ERDC (5): ERD Commander cannot be started"),
                    HasSubstr("advtemp\\I386: could not be moved onto the CD (Aborted)"),
                    HasSubstr("advtemp\\AUTORUN.INF: could not be moved onto the CD (Aborted)")));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
}

TEST_F(AddAdvToolsTest, MoveThatLeavesFilesWithoutAFailure_IsNoted) {
  host.shell_answers.assign(10, {0, false});  // for all further calls
  Add(true, false);
  EXPECT_THAT(Notes(), HasSubstr("advtemp\\AUTORUN.INF: could not be moved onto the CD\n"));
}

TEST_F(AddAdvToolsTest, MissingBootSector_IsNotedAndThePatchDoesNothing) {
  host.nodes.erase(testing::FakeHost::Key("C:\\Discwright\\files\\bootsect\\erdc.bin"));
  Add(true, false);
  EXPECT_EQ(OnCd("boot\\images\\erdc.bin"), "<missing>");
  EXPECT_EQ(OnCd("ERDC\\SETUPLDR.BIN"), "loader of erdc and erdc");
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(Notes(),
            "C:\\Discwright\\files\\bootsect\\erdc.bin: is missing: the system that this boot sector starts cannot be "
            "started from the CD\n"
            "C:\\Discwright\\vexacd\\boot\\images\\erdc.bin: is missing: ERD Commander cannot be started from the "
            "CD\n");
}

TEST_F(AddAdvToolsTest, MissingLoader_IsNotedAndTheStepGoesOn) {
  host.nodes.erase(testing::FakeHost::Key("E:\\I386\\SETUPLDR.BIN"));
  Add(true, false);
  EXPECT_EQ(OnCd("ERDC\\TXTSETUP.SIF"), "path = \\erdc, \\I386");
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(Notes(),
            "C:\\Discwright\\advtemp\\I386\\SETUPLDR.BIN: is missing: ERD Commander cannot be started "
            "from the CD\n");
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddAdvToolsTest, LoaderThatCannotBePatched_ShowsThePatchersBoxAndTheStepGoesOn) {
  MakeToolCd("F:", "i386 at the end: i3");
  Add(false, true);
  ASSERT_THAT(user.messages, SizeIs(1));
  EXPECT_EQ(user.messages[0].title, "Patching Error");
  EXPECT_EQ(OnCd("OOBC\\SETUPLDR.BIN"), "i386 at the end: i3");
  EXPECT_EQ(OnCd("OOBC\\TXTSETUP.SIF"), "path = \\oobc, \\I386");
  EXPECT_EQ(cancelled, 0);
  EXPECT_EQ(
      Notes(),
      "C:\\Discwright\\advtemp\\I386\\SETUPLDR.BIN: could not be patched: the bytes to replace reach past the end "
      "of the file\n");
}

TEST_F(AddAdvToolsTest, ToolOfTwoGigabytes_EndsWithTheTextOfWindows2000AndLeavesTheStagingFolder) {
  host.AddFileOfSize("F:\\HUGE.BIN", std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1);
  Add(true, true);
  ExpectFatalError("Windows 2000/XP installation");
  EXPECT_EQ(host.Content("C:\\Discwright\\advtemp\\ERDC\\TXTSETUP.SIF"), "path = \\erdc, \\I386");
  EXPECT_EQ(OnCd("ERDC\\TXTSETUP.SIF"), "<missing>");
}

TEST_F(AddAdvToolsTest, UnreadableFileInTheMiddle_IsNotedAndTheStepGoesOn) {
  host.FailOn("CopyFileWithProgress", "OTHER.DLL", host::ErrorClass::kNotReady, "scratched");
  Add(true, false);
  EXPECT_THAT(Notes(), HasSubstr("scratched"));
  EXPECT_EQ(cancelled, 0);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
}

}  // namespace
}  // namespace discwright::integration
