// Tests of moves and renames that Wine does differently from Windows, or that only POSIX has: joining folders, error
// numbers, letter case, links, several file systems.
#include "host/shell_operations.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

namespace fs = std::filesystem;
using testing::BytesOfSize;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SmallDisk;
using testing::TempFolder;

constexpr std::uint16_t kQuietly = kShellSilent + kShellNoConfirmation;

constexpr int kNotFound = 2;
constexpr int kDiskFull = 112;
constexpr int kDestinationInSource = 0x76;
constexpr int kFileInTheWay = 0x7E;
constexpr int kFolderInTheWay = 0x80;
constexpr int kUnknown = 0x402;

int NumberOf(ShellVerb verb, const std::string& source, const std::string& destination) {
  const ShellAnswer answer = RunShellOperation({verb, nullptr, source, destination, kQuietly, ""});
  EXPECT_FALSE(answer.aborted);
  return answer.number;
}

class ShellMove : public ::testing::Test {
 protected:
  int Move(std::string_view source, std::string_view destination) const {
    return NumberOf(ShellVerb::kMove, folder_.Core(source), folder_.Core(destination));
  }
  int Rename(std::string_view source, std::string_view destination) const {
    return NumberOf(ShellVerb::kRename, folder_.Core(source), folder_.Core(destination));
  }
  fs::path LinkTarget(std::string_view name) const { return fs::read_symlink(folder_.Native(name)); }
  bool IsFolder(std::string_view name) const { return fs::is_directory(fs::symlink_status(folder_.Native(name))); }

  TempFolder folder_;
};

using ShellRename = ShellMove;

struct stat FactsOf(const std::string& native) {
  struct stat facts {};
  EXPECT_EQ(lstat(native.c_str(), &facts), 0) << native;
  return facts;
}

TEST_F(ShellMove, Wildcard_TakesHiddenNamesAndMakesTheDestination) {
  folder_.Write("from/.hidden", "1");
  folder_.Write("from/.folder/a", "2");
  folder_.Write("from/...", "3");
  folder_.Write("from/name", "4");
  EXPECT_EQ(Move("from\\*.*", "deep\\to"), 0);
  EXPECT_THAT(folder_.Names("deep/to"), ElementsAre("...", ".folder", ".hidden", "name"));
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
}

TEST_F(ShellMove, Wildcard_IsMatchedInAnyCase) {
  folder_.Write("From/a.TXT", "1");
  folder_.Write("From/Ü.txt", "2");
  folder_.Write("From/c.text", "3");
  folder_.Write("From/d", "4");
  EXPECT_EQ(Move("FROM/*.Txt", "To"), 0);
  EXPECT_THAT(folder_.Names("To"), ElementsAre("a.TXT", "Ü.txt"));
  EXPECT_EQ(Move("from/D*.", "TO"), 0);
  EXPECT_THAT(folder_.Names("From"), ElementsAre("c.text"));
  EXPECT_THAT(folder_.Names(), ElementsAre("From", "To"));
}

TEST_F(ShellMove, WildcardOfOneMatch_StillMovesIntoTheDestination) {
  folder_.Write("from/a", "1");
  EXPECT_EQ(Move("from\\*", "to"), 0);
  EXPECT_EQ(folder_.Read("to/a"), "1");
}

TEST_F(ShellMove, WildcardIntoAFolderMadeInsideItsOwn_MovesAllButThat) {
  folder_.Write("from/a", "1");
  folder_.Write("from/b/c", "2");
  EXPECT_EQ(Move("from\\*.*", "from\\new"), 0);
  EXPECT_THAT(folder_.Names("from"), ElementsAre("new"));
  EXPECT_EQ(folder_.Read("from/new/b/c"), "2");
}

TEST_F(ShellMove, WildcardOfTheCurrentFolder_NeedsNoFolder) {
  folder_.Write("from/a", "1");
  const fs::path before = fs::current_path();
  fs::current_path(folder_.Native("from"));
  const int number = NumberOf(ShellVerb::kMove, "*.*", folder_.Core("to"));
  fs::current_path(before);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(folder_.Read("to/a"), "1");
}

TEST_F(ShellMove, WhatIsMissing_IsNotFound) {
  folder_.MakeFolder("empty");
  EXPECT_EQ(Move("missing", "to"), kNotFound);
  EXPECT_EQ(Move("missing\\missing", "to"), kNotFound);
  EXPECT_EQ(Move("missing\\*.*", "to"), kNotFound);
  EXPECT_EQ(Move("empty\\*.*", "to"), kNotFound);
  EXPECT_THAT(folder_.Names(), ElementsAre("empty"));
}

TEST_F(ShellMove, MissingFoldersOfANewName_AreMade) {
  folder_.Write("a", "1");
  EXPECT_EQ(Move("a", "x\\y\\b"), 0);
  EXPECT_EQ(folder_.Read("x/y/b"), "1");
}

TEST_F(ShellMove, FoldersOfBothSides_AreJoined) {
  folder_.Write("from/d/a", "new");
  folder_.Write("from/d/sub/n", "new");
  folder_.Write("from/d/other/x", "new");
  folder_.Write("to/d/a", "old");
  folder_.Write("to/d/kept", "old");
  folder_.Write("to/d/sub/kept", "old");
  EXPECT_EQ(Move("from\\*.*", "to"), 0);
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
  EXPECT_THAT(folder_.Names("to/d"), ElementsAre("a", "kept", "other", "sub"));
  EXPECT_THAT(folder_.Names("to/d/sub"), ElementsAre("kept", "n"));
  EXPECT_EQ(folder_.Read("to/d/a"), "new");
  EXPECT_EQ(folder_.Read("to/d/other/x"), "new");
}

TEST_F(ShellMove, NamesInAnotherCase_AreTheSameNamesAndKeepTheDestinationsCase) {
  folder_.Write("from/boot/loader.bin", "new");
  folder_.Write("from/boot/fresh", "new");
  folder_.Write("to/BOOT/LOADER.BIN", "old");
  folder_.Write("to/BOOT/KEPT", "old");
  folder_.SetReadOnly("to/BOOT/LOADER.BIN");
  EXPECT_EQ(Move("FROM\\Boot", "TO"), 0);
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
  EXPECT_THAT(folder_.Names("to"), ElementsAre("BOOT"));
  EXPECT_THAT(folder_.Names("to/BOOT"), ElementsAre("KEPT", "LOADER.BIN", "fresh"));
  EXPECT_EQ(folder_.Read("to/BOOT/LOADER.BIN"), "new");
}

TEST_F(ShellMove, NamesOfOneSideThatDifferOnlyInCase_AreBothMoved) {
  folder_.Write("from/README", "upper");
  folder_.Write("from/readme", "lower");
  folder_.Write("from/ReadMe", "mixed");
  EXPECT_EQ(Move("from\\*.*", "to"), 0);
  EXPECT_THAT(folder_.Names("to"), ElementsAre("README", "ReadMe", "readme"));
  for (const char* existing : {"readme", "readMe"}) {
    const TempFolder other;
    other.Write(existing, "old");
    other.Write("from/README", "upper");
    other.Write("from/readme", "lower");
    EXPECT_EQ(NumberOf(ShellVerb::kMove, other.Core("from\\*.*"), other.Core()), 0);
    EXPECT_EQ(other.Read(existing), existing == std::string("readme") ? "lower" : "upper");
    EXPECT_EQ(other.Names().size(), 3u);
  }
}

TEST_F(ShellMove, NameThatIsThereInTwoCases_IsTheOneWrittenExactly) {
  folder_.Write("from/name", "new");
  folder_.Write("to/NAME", "upper");
  folder_.Write("to/name", "lower");
  EXPECT_EQ(Move("from\\name", "to"), 0);
  EXPECT_EQ(folder_.Read("to/name"), "new");
  EXPECT_EQ(folder_.Read("to/NAME"), "upper");
}

TEST_F(ShellMove, WhatWasMoved_IsFoundInAnyCaseAtOnce) {
  folder_.Write("from/Name", "x");
  folder_.MakeFolder("to");
  EXPECT_FALSE(CheckReadable(folder_.Core("to\\NAME")).ok());
  EXPECT_EQ(Move("from\\*.*", "to"), 0);
  EXPECT_TRUE(CheckReadable(folder_.Core("to\\NAME")).ok());
  EXPECT_FALSE(CheckReadable(folder_.Core("from\\NAME")).ok());
  EXPECT_FALSE(CheckReadable(folder_.Core("to\\OTHER")).ok());
  EXPECT_EQ(Rename("to\\name", "to\\Other"), 0);
  EXPECT_TRUE(CheckReadable(folder_.Core("to\\OTHER")).ok());
}

TEST_F(ShellMove, KindsThatDoNotFit_FailAndLoseNothing) {
  folder_.Write("from/a", "file");
  folder_.Write("from/b/c", "folder");
  folder_.Write("to/a/c", "folder");
  folder_.Write("to/b", "file");
  EXPECT_EQ(Move("from\\a", "to"), kFolderInTheWay);
  EXPECT_EQ(Move("from\\b", "to"), kFileInTheWay);
  EXPECT_EQ(Move("from\\*.*", "to\\b"), kFileInTheWay);
  EXPECT_EQ(Move("from\\b", "to\\b"), kFileInTheWay);
  EXPECT_EQ(folder_.Read("from/a"), "file");
  EXPECT_EQ(folder_.Read("from/b/c"), "folder");
  EXPECT_EQ(folder_.Read("to/a/c"), "folder");
  EXPECT_EQ(folder_.Read("to/b"), "file");
}

TEST_F(ShellMove, NameWhosePlaceIsTakenByAnotherKind_StaysAndAllOthersAreMoved) {
  for (const char* name : {"from/a", "from/b", "from/c/d", "from/e/f", "from/e/g", "from/h"}) folder_.Write(name, "x");
  folder_.MakeFolder("to/b");
  folder_.Write("to/c", "file");
  folder_.MakeFolder("to/e/f");
  EXPECT_EQ(Move("from\\*.*", "to"), kFolderInTheWay);
  EXPECT_THAT(folder_.Names("from"), ElementsAre("b", "c", "e"));
  EXPECT_THAT(folder_.Names("from/e"), ElementsAre("f"));
  EXPECT_THAT(folder_.Names("to"), ElementsAre("a", "b", "c", "e", "h"));
  EXPECT_EQ(folder_.Read("to/e/g"), "x");
  EXPECT_EQ(folder_.Read("to/c"), "file");
}

TEST_F(ShellMove, FolderIntoItselfOrBelow_IsRefused) {
  folder_.Write("Folder/sub/file", "x");
  folder_.Link("Folder/sub", "link");
  EXPECT_EQ(Move("folder", "FOLDER"), kDestinationInSource);
  EXPECT_EQ(Move("Folder", "folder\\sub"), kDestinationInSource);
  EXPECT_EQ(Move("Folder", "Folder\\new\\deep"), kDestinationInSource);
  EXPECT_EQ(Move("Folder", "link"), kDestinationInSource);
  EXPECT_EQ(Move("Folder", "link\\new"), kDestinationInSource);
  EXPECT_EQ(Rename("Folder", "Folder\\new"), kDestinationInSource);
  EXPECT_THAT(folder_.Names(), ElementsAre("Folder", "link"));
  EXPECT_THAT(folder_.Names("Folder"), ElementsAre("sub"));
  EXPECT_THAT(folder_.Names("Folder/sub"), ElementsAre("file"));
}

TEST_F(ShellMove, NeighbourWhoseNameBeginsAlike_IsNotBelow) {
  folder_.Write("cd/file", "x");
  folder_.MakeFolder("cd2");
  EXPECT_EQ(Move("cd", "cd2"), 0);
  EXPECT_EQ(folder_.Read("cd2/cd/file"), "x");
}

TEST_F(ShellMove, Link_IsMovedItself) {
  const TempFolder elsewhere;
  elsewhere.Write("file", "precious");
  folder_.Link(elsewhere.native(), "folder link");
  folder_.Link("nowhere", "broken");
  folder_.Link(elsewhere.Native("file"), "file link");
  folder_.MakeFolder("to");
  for (const char* name : {"folder link", "broken", "file link"}) EXPECT_EQ(Move(name, "to"), 0) << name;
  EXPECT_EQ(LinkTarget("to/folder link"), elsewhere.native());
  EXPECT_EQ(LinkTarget("to/broken"), "nowhere");
  EXPECT_EQ(LinkTarget("to/file link"), elsewhere.Native("file"));
  EXPECT_EQ(elsewhere.Read("file"), "precious");
}

TEST_F(ShellMove, LinkAtTheDestination_IsReplacedAndItsTargetStays) {
  const TempFolder elsewhere;
  elsewhere.Write("folder/kept", "precious");
  elsewhere.Write("file", "precious");
  folder_.Write("from/a/new", "new");
  folder_.Write("from/b", "new");
  folder_.Write("from/c", "new");
  folder_.Link(elsewhere.Native("folder"), "a");
  folder_.Link(elsewhere.Native("folder"), "b");
  folder_.Link(elsewhere.Native("file"), "c");
  EXPECT_EQ(Move("from\\*.*", ""), 0);
  EXPECT_TRUE(IsFolder("a"));
  EXPECT_THAT(folder_.Names("a"), ElementsAre("new"));
  for (const char* name : {"b", "c"}) {
    EXPECT_FALSE(fs::is_symlink(folder_.Native(name))) << name;
    EXPECT_EQ(folder_.Read(name), "new") << name;
  }
  EXPECT_THAT(elsewhere.Names("folder"), ElementsAre("kept"));
  EXPECT_EQ(elsewhere.Read("file"), "precious");
}

TEST_F(ShellMove, FolderOntoALinkToAFile_FailsAsOntoAFile) {
  folder_.Write("from/a/new", "new");
  folder_.Write("file", "old");
  folder_.Link("file", "a");
  EXPECT_EQ(Move("from\\a", ""), kFileInTheWay);
  EXPECT_EQ(LinkTarget("a"), "file");
  EXPECT_EQ(folder_.Read("from/a/new"), "new");
}

TEST_F(ShellMove, LinkToAFolderOntoAFolder_IsNotJoined) {
  folder_.Write("target/a", "x");
  folder_.MakeFolder("from");
  folder_.Link("../target", "from/d");
  folder_.Write("to/d/b", "y");
  EXPECT_EQ(Move("from\\d", "to"), kFolderInTheWay);
  EXPECT_THAT(folder_.Names("to/d"), ElementsAre("b"));
  EXPECT_THAT(folder_.Names("target"), ElementsAre("a"));
}

TEST_F(ShellMove, DestinationFolderThatIsALink_IsWhereItLeads) {
  folder_.Write("from/a", "x");
  folder_.MakeFolder("real");
  folder_.Link("real", "to");
  EXPECT_EQ(Move("from\\a", "to"), 0);
  EXPECT_EQ(folder_.Read("real/a"), "x");
  EXPECT_EQ(LinkTarget("to"), "real");
}

TEST_F(ShellMove, TwoNamesOfOneFile_BecomeOne) {
  folder_.Write("from/a", "x");
  folder_.MakeFolder("to");
  folder_.MakeHardLink("from/a", "to/a");
  EXPECT_EQ(Move("from\\a", "to"), 0);
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
  EXPECT_THAT(folder_.Names("to"), ElementsAre("a"));
  EXPECT_EQ(folder_.Read("to/a"), "x");
}

TEST_F(ShellMove, OneFileSystem_IsRenamedAndNotCopied) {
  folder_.Write("from/d/file", "x");
  folder_.Write("from/file", "y");
  folder_.Pipe("from/pipe");
  const ino_t in_folder = FactsOf(folder_.Native("from/d/file")).st_ino;
  const ino_t file = FactsOf(folder_.Native("from/file")).st_ino;
  EXPECT_EQ(Move("from\\*.*", "to"), 0);
  EXPECT_EQ(FactsOf(folder_.Native("to/d/file")).st_ino, in_folder);
  EXPECT_EQ(FactsOf(folder_.Native("to/file")).st_ino, file);
  EXPECT_TRUE(S_ISFIFO(FactsOf(folder_.Native("to/pipe")).st_mode));
}

TEST_F(ShellMove, AwkwardNames_AreMoved) {
  for (const char* name : {"back\\slash", "line\nend", "bytes\xFF\xC4", " blank ", "quote\"", "*"}) {
    folder_.Write("from/" + std::string(name), name);
  }
  EXPECT_EQ(Move("from\\*.*", "to"), 0);
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
  EXPECT_EQ(folder_.Names("to").size(), 6u);
  EXPECT_EQ(folder_.Read("to/back\\slash"), "back\\slash");
  EXPECT_EQ(folder_.Read("to/bytes\xFF\xC4"), "bytes\xFF\xC4");
}

TEST_F(ShellRename, NameThatIsThereInAnotherCase_IsRefused) {
  folder_.Write("a", "new");
  folder_.Write("B", "old");
  EXPECT_EQ(Rename("A", "b"), 183);
  EXPECT_EQ(folder_.Read("a"), "new");
  EXPECT_EQ(folder_.Read("B"), "old");
}

TEST_F(ShellRename, LetterCaseAlone_IsChanged) {
  folder_.Write("i386/win51ip", "x");
  EXPECT_EQ(Rename("i386", "I386"), 0);
  EXPECT_THAT(folder_.Names(), ElementsAre("I386"));
  EXPECT_EQ(Rename("I386\\WIN51IP", "i386\\WIN51IP"), 0);
  EXPECT_THAT(folder_.Names("I386"), ElementsAre("WIN51IP"));
}

TEST_F(ShellRename, SameName_ChangesNothing) {
  folder_.Write("I386/a", "x");
  EXPECT_EQ(Rename("I386", "I386"), 0);
  EXPECT_EQ(Rename("I386/a", "I386/a"), 0);
  EXPECT_EQ(folder_.Read("I386/a"), "x");
}

TEST_F(ShellRename, NameWithAWildcard_IsANameLikeAnyOther) {
  folder_.Write("a", "1");
  folder_.Write("b*", "2");
  EXPECT_EQ(Rename("b*", "c"), 0);
  EXPECT_EQ(Rename("?", "d"), kNotFound);
  EXPECT_THAT(folder_.Names(), ElementsAre("a", "c"));
}

TEST_F(ShellRename, MissingSourceOrFolder_IsNotFoundAndNothingIsMade) {
  folder_.Write("file", "x");
  EXPECT_EQ(Rename("missing", "new"), kNotFound);
  EXPECT_EQ(Rename("file", "missing\\new"), kNotFound);
  EXPECT_EQ(Rename("file", "file\\new"), kNotFound);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(ShellRename, NameOfALink_IsRefusedAlsoWhereItLeadsNowhere) {
  folder_.Write("target/kept", "1");
  folder_.Write("a/new", "2");
  folder_.Link("target", "b");
  folder_.Link("missing", "c");
  EXPECT_EQ(Rename("a", "b"), 183);
  EXPECT_EQ(Rename("a", "c"), 183);
  EXPECT_THAT(folder_.Names("target"), ElementsAre("kept"));
  EXPECT_THAT(folder_.Names("a"), ElementsAre("new"));
}

TEST_F(ShellRename, FolderThatMayNotBeChanged_IsDenied) {
  if (geteuid() == 0) GTEST_SKIP() << "the administrator may change every folder";
  folder_.Write("locked/a", "x");
  folder_.SetMode("locked", 0555);
  EXPECT_EQ(Rename("locked\\a", "locked\\b"), 0x78);
  folder_.SetMode("locked", 0755);
  EXPECT_THAT(folder_.Names("locked"), ElementsAre("a"));
}

TEST_F(ShellRename, NameThatIsTooLong_IsAnUnknownFailure) {
  folder_.Write("a", "x");
  EXPECT_EQ(Rename("a", std::string(300, 'n')), kUnknown);
  EXPECT_EQ(folder_.Read("a"), "x");
}

// A second file system beside the first.
class ShellMoveAcross : public ShellMove {
 protected:
  void SetUp() override {
    if (!disk_.mounted()) GTEST_SKIP() << "mounting is not permitted";
  }
  // From the first one to the second.
  int MoveAcross(std::string_view source, std::string_view destination) const {
    return NumberOf(ShellVerb::kMove, folder_.Core(source), there().Core(destination));
  }
  const TempFolder& there() const { return disk_.folder(); }

  SmallDisk disk_;
};

// Modes and times that no file gets by itself.
void SetFacts(const std::string& native, mode_t mode, time_t seconds) {
  const timespec times[2] = {{seconds - 5, 0}, {seconds, 123456000}};
  ASSERT_EQ(utimensat(AT_FDCWD, native.c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
  ASSERT_TRUE(fs::is_symlink(native) || chmod(native.c_str(), mode) == 0);
}

TEST_F(ShellMoveAcross, Tree_KeepsModesTimesAndLinks) {
  folder_.Write("d/sub/file", BytesOfSize(100000));
  folder_.Write("d/locked/file", "x");
  folder_.Link("../elsewhere", "d/link");
  SetFacts(folder_.Native("d/sub/file"), 0440, 946684800);
  SetFacts(folder_.Native("d/link"), 0, 946684801);
  SetFacts(folder_.Native("d/locked"), 0555, 946684802);
  SetFacts(folder_.Native("d"), 0750, 946684803);
  EXPECT_EQ(MoveAcross("d", ""), 0);
  EXPECT_THAT(folder_.Names(), IsEmpty());
  EXPECT_THAT(there().Names(), ElementsAre("d"));
  EXPECT_EQ(there().Read("d/sub/file"), BytesOfSize(100000));
  EXPECT_EQ(there().Mode("d/sub/file"), 0440u);
  EXPECT_EQ(there().Mode("d/locked"), 0555u);
  EXPECT_EQ(there().Mode("d"), 0750u);
  EXPECT_EQ(fs::read_symlink(there().Native("d/link")), "../elsewhere");
  EXPECT_EQ(FactsOf(there().Native("d/sub/file")).st_mtim.tv_sec, 946684800);
  EXPECT_EQ(FactsOf(there().Native("d/sub/file")).st_mtim.tv_nsec, 123456000);
  EXPECT_EQ(FactsOf(there().Native("d/link")).st_mtim.tv_sec, 946684801);
  EXPECT_EQ(FactsOf(there().Native("d/locked")).st_mtim.tv_sec, 946684802);
  EXPECT_EQ(FactsOf(there().Native("d")).st_mtim.tv_sec, 946684803);
}

TEST_F(ShellMoveAcross, Wildcard_OverwritesAndJoinsInAnyCase) {
  folder_.Write("from/a", "new");
  folder_.Write("from/boot/b", "new");
  folder_.Write("from/boot/sub/c", "new");
  there().Write("to/A", "old");
  there().Write("to/BOOT/B", "old");
  there().Write("to/BOOT/kept", "old");
  there().SetReadOnly("to/A");
  EXPECT_EQ(MoveAcross("from\\*.*", "to"), 0);
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
  EXPECT_THAT(there().Names("to"), ElementsAre("A", "BOOT"));
  EXPECT_THAT(there().Names("to/BOOT"), ElementsAre("B", "kept", "sub"));
  EXPECT_EQ(there().Read("to/A"), "new");
  EXPECT_EQ(there().Read("to/BOOT/sub/c"), "new");
}

TEST_F(ShellMoveAcross, LinkAtTheDestination_IsReplacedAndItsTargetStays) {
  const TempFolder elsewhere;
  elsewhere.Write("kept", "precious");
  folder_.Write("from/a/new", "new");
  folder_.Write("from/b", "new");
  for (const char* name : {"a", "b"}) there().Link(elsewhere.native(), name);
  EXPECT_EQ(MoveAcross("from\\*.*", ""), 0);
  EXPECT_THAT(there().Names("a"), ElementsAre("new"));
  EXPECT_EQ(there().Read("b"), "new");
  EXPECT_THAT(elsewhere.Names(), ElementsAre("kept"));
}

TEST_F(ShellMoveAcross, TargetOfALinkInTheTree_IsNeitherCopiedNorRemoved) {
  const TempFolder elsewhere;
  elsewhere.Write("precious", "x");
  folder_.MakeFolder("d");
  folder_.Link(elsewhere.native(), "d/link");
  EXPECT_EQ(MoveAcross("d", ""), 0);
  EXPECT_EQ(fs::read_symlink(there().Native("d/link")), elsewhere.native());
  EXPECT_THAT(elsewhere.Names(), ElementsAre("precious"));
}

TEST_F(ShellMoveAcross, FullDisk_LeavesTheSourceWholeAndTheDestinationAsItWas) {
  folder_.Write("from/d/a", "small");
  folder_.Write("from/d/b", BytesOfSize(2 << 20));
  folder_.Write("from/file", BytesOfSize(2 << 20));
  there().Write("file", "old");
  EXPECT_EQ(MoveAcross("from\\d", ""), kDiskFull);
  EXPECT_EQ(MoveAcross("from\\file", ""), kDiskFull);
  EXPECT_THAT(there().Names(), ElementsAre("file"));
  EXPECT_EQ(there().Read("file"), "old");
  EXPECT_EQ(folder_.Read("from/d/a"), "small");
  EXPECT_EQ(folder_.Read("from/d/b"), BytesOfSize(2 << 20));
  EXPECT_EQ(folder_.Read("from/file"), BytesOfSize(2 << 20));
}

TEST_F(ShellMoveAcross, FullDiskInTheMiddle_KeepsWhatWasMovedBefore) {
  folder_.Write("from/a", "small");
  folder_.Write("from/b", BytesOfSize(2 << 20));
  folder_.Write("from/c", "small");
  EXPECT_EQ(MoveAcross("from\\*.*", ""), kDiskFull);
  EXPECT_THAT(there().Names(), ElementsAre("a"));
  EXPECT_THAT(folder_.Names("from"), ElementsAre("b", "c"));
}

TEST_F(ShellMoveAcross, Pipe_IsNotCopiedAndItsFolderStaysWhole) {
  folder_.Write("d/a", "x");
  folder_.Pipe("d/pipe");
  EXPECT_NE(MoveAcross("d", ""), 0);
  EXPECT_THAT(there().Names(), IsEmpty());
  EXPECT_THAT(folder_.Names("d"), ElementsAre("a", "pipe"));
}

TEST_F(ShellMove, FolderIntoAFileSystemMountedInIt_IsRefused) {
  folder_.MakeFolder("outer/inner");
  const std::string inner = folder_.Native("outer/inner");
  if (mount("discwright-test", inner.c_str(), "tmpfs", 0, "size=1m") != 0) GTEST_SKIP() << "mounting is not permitted";
  EXPECT_EQ(Move("outer", "outer\\inner"), kDestinationInSource);
  EXPECT_EQ(Move("outer", "outer\\inner\\new"), kDestinationInSource);
  EXPECT_THAT(folder_.Names("outer/inner"), IsEmpty());
  umount2(inner.c_str(), MNT_DETACH);
}

TEST_F(ShellMoveAcross, Rename_MovesToo) {
  folder_.Write("a", "x");
  EXPECT_EQ(NumberOf(ShellVerb::kRename, folder_.Core("a"), there().Core("b")), 0);
  EXPECT_EQ(there().Read("b"), "x");
  EXPECT_THAT(folder_.Names(), IsEmpty());
}

}  // namespace
}  // namespace discwright::host
