// Tests of copying by pattern, moving and renaming.
#include "integration/file_operations.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/build_fixture.h"

namespace discwright::integration {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class CopyMatchingFilesTest : public testing::BuildFixture {
 protected:
  CopyMatchingFilesTest() {
    host.AddFolder("C:\\to");
    host.AddFile("D:\\WIN51", "1");
    host.AddFile("D:\\WIN51IP", "2", true);
    host.AddFile("D:\\WIN51IP.SP2", "3");
    host.AddFile("D:\\OTHER", "4");
  }
  bool Copy(const std::string& from, const std::string& to) { return CopyMatchingFiles(context, from, to); }
};

TEST_F(CopyMatchingFilesTest, Matches_KeepTheirNamesAndTheDestinationsLastNameIsIgnored) {
  EXPECT_TRUE(Copy("D:\\I386\\..\\win51*.*", "C:\\to\\anything"));
  EXPECT_EQ(host.Content("C:\\to\\WIN51"), "1");
  EXPECT_EQ(host.Content("C:\\to\\WIN51IP"), "2");
  EXPECT_EQ(host.Content("C:\\to\\WIN51IP.SP2"), "3");
  EXPECT_FALSE(host.Exists("C:\\to\\OTHER"));
  EXPECT_FALSE(host.Exists("C:\\to\\anything"));
}

TEST_F(CopyMatchingFilesTest, NothingMatches_IsTrueAndCopiesNothing) {
  EXPECT_TRUE(Copy("D:\\cdrom*.*", "C:\\to\\CDROM*.*"));
  EXPECT_TRUE(Copy("D:\\no such folder\\*.*", "C:\\to\\*.*"));
  EXPECT_THAT(notes.all(), IsEmpty());
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(CopyMatchingFilesTest, ExistingFile_IsOverwritten) {
  host.AddFile("C:\\to\\WIN51", "old");
  EXPECT_TRUE(Copy("D:\\WIN51", "C:\\to\\WIN51"));
  EXPECT_EQ(host.Content("C:\\to\\WIN51"), "1");
}

TEST_F(CopyMatchingFilesTest, FirstFailure_EndsItSilentlyWithANote) {
  host.FailOn("CopyFileWithProgress", "WIN51IP ", host::ErrorClass::kNotReady, "scratched");
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\WIN51*.*"));
  EXPECT_TRUE(host.Exists("C:\\to\\WIN51"));
  EXPECT_FALSE(host.Exists("C:\\to\\WIN51IP.SP2"));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].cause, "could not be copied, nor were the files after it that match win51*.*: scratched");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(CopyMatchingFilesTest, FolderThatCannotBeListed_IsNotedButNotOneThatIsMissing) {
  EXPECT_TRUE(Copy("D:\\none\\win51*.*", "C:\\to\\x"));
  EXPECT_THAT(notes.all(), IsEmpty());
  host.FailOn("ListFolder", "D:\\", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\x"));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].cause,
            "could not be listed, so files that match win51*.* may be missing: Permission denied");
}

TEST_F(CopyMatchingFilesTest, FolderThatMatches_IsAFailure) {
  host.AddFolder("D:\\WIN51A");
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\WIN51*.*"));
  EXPECT_THAT(notes.all(), SizeIs(1));
}

TEST_F(CopyMatchingFilesTest, LinkThatLoops_EndsItAndADeviceDoesNot) {
  host.AddSpecial("D:\\WIN51A");
  host.AddLink("D:\\WIN51IP.SP1", "D:\\", true);
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\WIN51*.*"));
  EXPECT_EQ(host.Content("C:\\to\\WIN51IP"), "2");
  EXPECT_FALSE(host.Exists("C:\\to\\WIN51A"));
  EXPECT_FALSE(host.Exists("C:\\to\\WIN51IP.SP2"));
  EXPECT_THAT(notes.all(), SizeIs(2));
}

TEST_F(CopyMatchingFilesTest, EntryWithAProblem_EndsItAndIsNamed) {
  host.SetProblem("D:\\WIN51IP", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\WIN51*.*"));
  EXPECT_TRUE(host.Exists("C:\\to\\WIN51"));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, "D:\\WIN51IP");
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("could not be copied: Permission denied"));
}

TEST_F(CopyMatchingFilesTest, Cancelled_EndsAfterTheFile) {
  user.on_do_events = [this] { Cancel(); };
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\WIN51*.*"));
  EXPECT_TRUE(host.Exists("C:\\to\\WIN51"));
  EXPECT_FALSE(host.Exists("C:\\to\\WIN51IP"));
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(CopyMatchingFilesTest, SystemThatShowsLowerCase_StoresUpperCaseWhenAsked) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("E:\\win51ip.sp1", "x");
  host.AddFile("E:\\Win51", "y");
  EXPECT_TRUE(CopyMatchingFiles(context, "E:\\win51*.*", "C:\\to\\x", util::CopiedNames::kAsOnDisc));
  EXPECT_EQ(host.RealName("C:\\to\\win51ip.sp1"), "WIN51IP.SP1");
  EXPECT_EQ(host.RealName("C:\\to\\win51"), "Win51");
  EXPECT_TRUE(CopyMatchingFiles(context, "E:\\win51ip*", "C:\\Discwright\\x"));
  EXPECT_EQ(host.RealName("C:\\Discwright\\win51ip.sp1"), "win51ip.sp1");
}

class ShellTest : public testing::BuildFixture {};

TEST_F(ShellTest, Move_AsksForNoWindowAndNoQuestionsOnTopOfTheFlagsGiven) {
  host.AddFile("C:\\from\\a", "1");
  int handle = 0;
  EXPECT_EQ(MoveWithShell(&handle, "C:\\from\\*.*", "C:\\to", 0, "Moving"), "");
  ASSERT_THAT(host.shell_operations, SizeIs(1));
  const host::ShellOperation& operation = host.shell_operations[0];
  EXPECT_EQ(operation.verb, host::ShellVerb::kMove);
  EXPECT_EQ(operation.owner_window, &handle);
  EXPECT_EQ(operation.source, "C:\\from\\*.*");
  EXPECT_EQ(operation.destination, "C:\\to");
  EXPECT_EQ(operation.flags, 20);
  EXPECT_EQ(operation.title, "Moving");
  EXPECT_EQ(host.Content("C:\\to\\a"), "1");
}

TEST_F(ShellTest, Flags_AreAddedAndNotJoined) {
  MoveWithShell(nullptr, "C:\\from\\*.*", "C:\\to", 4, "");
  EXPECT_EQ(host.shell_operations[0].flags, 24);
}

TEST_F(ShellTest, Rename_HasFixedFlags) {
  host.AddFile("C:\\from\\I386\\a", "1");
  EXPECT_EQ(RenameWithShell(nullptr, "C:\\from\\I386", "C:\\from\\ERDC", "title"), "");
  EXPECT_EQ(host.shell_operations[0].verb, host::ShellVerb::kRename);
  EXPECT_EQ(host.shell_operations[0].flags, 20);
  EXPECT_EQ(host.shell_operations[0].title, "title");
  EXPECT_EQ(host.Content("C:\\from\\ERDC\\a"), "1");
}

TEST_F(ShellTest, Answers_AreTheNumberThenAbortedThenNothing) {
  host.shell_answers = {{5, false}, {1026, true}, {0, true}, {0, false}};
  EXPECT_EQ(MoveWithShell(nullptr, "a", "b", 0, ""), "5");
  EXPECT_EQ(RenameWithShell(nullptr, "a", "b", ""), "1026");
  EXPECT_EQ(MoveWithShell(nullptr, "a", "b", 0, ""), "Aborted");
  EXPECT_EQ(RenameWithShell(nullptr, "a", "b", ""), "");
}

}  // namespace
}  // namespace discwright::integration
