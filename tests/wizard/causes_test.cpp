// Tests of the sentences that say why a location is refused: each situation, written out.
#include "wizard/causes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/fake_host.h"

namespace discwright::wizard {
namespace {

constexpr std::string (*kAskForAFolder[])(const std::string&) = {WhyNoFolder, WhyNoWin2KSource, WhyNoWin9xSource,
                                                                 WhyNoErdCommander, WhyNoBlueCon};

class CausesTest : public ::testing::Test {
 protected:
  CausesTest() {
    host.AddFile("S:\\I386\\setupldr.bin", "loader");
    host.AddFile("T:\\I386\\SYSTEM32\\CONFIG\\SOFTWARE", "hive");
    host.AddFile("U:\\I386\\SYSTEM32\\OOBCXXL.EXE", "tool");
    host.AddFile("X:\\tools\\more\\readme.txt", "text");
    host.AddFolder("X:\\empty");
  }

  // The root folder on systems without drives.
  void AddRootFolder() { host.nodes[""].kind = host::EntryKind::kFolder; }

  void ExpectOfEveryFolder(const std::string& text, const std::string& why) {
    for (const auto ask : kAskForAFolder) EXPECT_EQ(ask(text), why);
  }

  testing::FakeHost host;
};

TEST_F(CausesTest, EmptyOrBlankText_IsCalledEmpty) {
  for (const char* text : {"", "   "}) {
    ExpectOfEveryFolder(text, "The field is empty: enter a folder.");
    EXPECT_EQ(WhyNoServicePack(text), "The field is empty: enter the file of the service pack.");
  }
  EXPECT_EQ(WhyNoServicePack("\"\""), "The field is empty: enter the file of the service pack.");
}

TEST_F(CausesTest, QuotesAroundAFolder_ArePartOfItsName) {
  for (const std::string text : {"\"X:\\tools\"", "\"X:\\tools", "X:\\tools\""}) {
    ExpectOfEveryFolder(text, text + " has quotation marks, which count as part of the name: leave them out.");
  }
}

TEST_F(CausesTest, SingleQuoteAtAFile_IsPartOfItsName) {
  host.AddFile("X:\\sp.exe", "service pack");
  for (const std::string text : {"\"X:\\sp.exe", "X:\\sp.exe\""}) {
    EXPECT_EQ(WhyNoServicePack(text), text + " has quotation marks, which count as part of the name: leave them out.");
  }
}

TEST_F(CausesTest, Tilde_IsNotTheHomeFolder) {
  const std::string rest = " begins with \"~\", which is not expanded: write the whole path.";
  for (const std::string text : {"~", "~/cd", "~ann\\cd"}) {
    ExpectOfEveryFolder(text, text + rest);
    EXPECT_EQ(WhyNoServicePack(text), text + rest);
  }
  ExpectOfEveryFolder("X:\\~", "X:\\~ does not exist.");
}

TEST_F(CausesTest, MissingPath_DoesNotExist) {
  for (const char* text : {"X:\\nowhere", "X:\\nowhere\\", "X:/nowhere", "X:/nowhere/"}) {
    ExpectOfEveryFolder(text, "X:\\nowhere does not exist.");
    EXPECT_EQ(WhyNoServicePack(text), "X:\\nowhere does not exist.");
  }
  ExpectOfEveryFolder("Q:\\", "Q:\\ does not exist.");
  ExpectOfEveryFolder("\\", "\\ does not exist.");
}

TEST_F(CausesTest, FileOrDevice_IsNoFolder) {
  host.AddSpecial("X:\\device");
  ExpectOfEveryFolder("X:\\tools\\more\\readme.txt", "X:\\tools\\more\\readme.txt is a file: enter a folder.");
  ExpectOfEveryFolder("X:\\device", "X:\\device is a file: enter a folder.");
}

TEST_F(CausesTest, FolderThatCannotBeListed_IsReportedWithTheCause) {
  host.FailOn("ListFolder", "tools", host::ErrorClass::kAccessDenied, "Permission denied");
  ExpectOfEveryFolder("X:\\tools", "X:\\tools cannot be read: Permission denied.");
  ExpectOfEveryFolder("X:/tools/", "X:\\tools cannot be read: Permission denied.");
}

TEST_F(CausesTest, PlaceThatCannotBeLookedAt_IsNotCalledMissing) {
  host.FailOn("Look", "more", host::ErrorClass::kAccessDenied, "Permission denied");
  ExpectOfEveryFolder("X:\\tools\\more", "X:\\tools\\more cannot be read: Permission denied.");
  EXPECT_EQ(WhyNoServicePack("X:\\tools\\more\\sp.exe"), "X:\\tools\\more\\sp.exe cannot be read: Permission denied.");
}

TEST_F(CausesTest, EmptyFolder_IsCalledEmpty) {
  ExpectOfEveryFolder("X:\\empty", "X:\\empty is empty.");
  ExpectOfEveryFolder("X:/empty/", "X:\\empty is empty.");
  AddRootFolder();
  host.nodes.erase("c:");  // the fake host lists its drives in the root folder
  for (const char* drive : {"s:", "t:", "u:", "x:"}) host.nodes.erase(drive);
  ExpectOfEveryFolder("\\", "\\ is empty.");
}

TEST_F(CausesTest, FolderWithoutAProblem_IsStillRefused) {
  EXPECT_EQ(WhyNoFolder("X:/tools"), "X:\\tools cannot be used as a folder.");
}

TEST_F(CausesTest, FolderInPlaceOfTheServicePack_IsNoFile) {
  EXPECT_EQ(WhyNoServicePack("X:\\tools"), "X:\\tools is not a file: enter the path of the installer.");
  EXPECT_EQ(WhyNoServicePack(" \"X:\\tools\\\" "), "X:\\tools is not a file: enter the path of the installer.");
  host.AddSpecial("X:\\device");
  EXPECT_EQ(WhyNoServicePack("X:\\device"), "X:\\device is not a file: enter the path of the installer.");
}

TEST_F(CausesTest, ServicePackThatCannotBeRead_IsReportedWithTheCause) {
  host.FailOn("OpenBinary", "readme.txt", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_EQ(WhyNoServicePack("\"X:/tools/more/readme.txt\""),
            "X:\\tools\\more\\readme.txt cannot be read: Permission denied.");
}

TEST_F(CausesTest, RootOfAWin2KCd_NamesI386) {
  for (const char* text : {"S:\\", "S:/"}) {
    EXPECT_EQ(WhyNoWin2KSource(text), "S:\\ is the root of the CD: did you mean S:\\I386?");
  }
  EXPECT_EQ(WhyNoWin2KSource("S:"), "S: is the root of the CD: did you mean S:\\I386?");
}

TEST_F(CausesTest, CopyOfAWin2KCd_NamesItsI386) {
  host.AddFile("X:\\copies\\xp\\I386\\setupldr.bin", "loader");
  for (const char* text : {"X:\\copies\\xp", "X:\\copies\\xp\\", "X:/copies/xp", "X:/copies/xp/"}) {
    EXPECT_EQ(WhyNoWin2KSource(text), "X:\\copies\\xp is the root of the CD: did you mean X:\\copies\\xp\\I386?");
  }
}

TEST_F(CausesTest, RootOfAWin9xCd_NamesTheFolderOfItsCabinets) {
  for (const std::string name : {"WIN98", "WIN9X", "WINME", "WIN98SE"}) {
    host.AddFile("X:\\cd of " + name + "\\" + name + "\\mini.cab", "cabinet");
    host.AddFile("X:\\cd of " + name + "\\readme.txt", "text");
    const std::string root = "X:\\cd of " + name;
    const std::string why = root + " is the root of the CD: did you mean " + root + "\\" + name + "?";
    EXPECT_EQ(WhyNoWin9xSource(root), why);
    EXPECT_EQ(WhyNoWin9xSource(root + "\\"), why);
  }
}

TEST_F(CausesTest, RootFolderAsRootOfTheCd_NamesItsFolders) {
  AddRootFolder();
  host.AddFile("\\I386\\setupldr.bin", "loader");
  host.AddFile("\\WINME\\mini.cab", "cabinet");
  for (const char* text : {"\\", "/"}) {
    EXPECT_EQ(WhyNoWin2KSource(text), "\\ is the root of the CD: did you mean \\I386?");
    EXPECT_EQ(WhyNoWin9xSource(text), "\\ is the root of the CD: did you mean \\WINME?");
    EXPECT_EQ(WhyNoErdCommander(text), "There is no file \\I386\\SYSTEM32\\CONFIG\\SOFTWARE.");
    EXPECT_EQ(WhyNoBlueCon(text), "There is no file \\I386\\SYSTEM32\\OOBC*.*.");
  }
}

TEST_F(CausesTest, NoSetupFilesNearby_SuggestsNothing) {
  for (const char* text : {"X:\\tools", "X:\\tools\\", "X:/tools/"}) {
    EXPECT_EQ(WhyNoWin2KSource(text), "There is no file X:\\tools\\setupldr.bin.");
    EXPECT_EQ(WhyNoWin9xSource(text), "There is no file X:\\tools\\mini.cab.");
  }
  host.AddFile("X:\\other\\I386\\readme.txt", "text");
  host.AddFile("X:\\other\\WIN98\\readme.txt", "text");
  EXPECT_EQ(WhyNoWin2KSource("X:\\other"), "There is no file X:\\other\\setupldr.bin.");
  EXPECT_EQ(WhyNoWin9xSource("X:\\other"), "There is no file X:\\other\\mini.cab.");
}

TEST_F(CausesTest, FolderOfAToolCd_NamesTheRoot) {
  for (const char* text : {"\\I386", "\\I386\\", "/I386", "/I386/"}) {
    EXPECT_EQ(WhyNoErdCommander(std::string("T:") + text),
              "T:\\I386 is a folder of the CD: did you mean its root, T:\\?");
    EXPECT_EQ(WhyNoBlueCon(std::string("U:") + text), "U:\\I386 is a folder of the CD: did you mean its root, U:\\?");
  }
}

TEST_F(CausesTest, FolderOfACopyOfAToolCd_NamesTheCopy) {
  host.AddFile("X:\\erd\\I386\\SYSTEM32\\CONFIG\\SOFTWARE", "hive");
  EXPECT_EQ(WhyNoErdCommander("X:/erd/I386/"), "X:\\erd\\I386 is a folder of the CD: did you mean its root, X:\\erd?");
}

TEST_F(CausesTest, ToolCdAsRootFolder_IsNamed) {
  AddRootFolder();
  host.AddFile("\\I386\\SYSTEM32\\CONFIG\\SOFTWARE", "hive");
  EXPECT_EQ(WhyNoErdCommander("\\I386"), "\\I386 is a folder of the CD: did you mean its root, \\?");
}

TEST_F(CausesTest, NoToolNearby_SuggestsNothing) {
  for (const char* text : {"X:\\tools\\more", "X:\\tools\\more\\", "X:/tools/more/"}) {
    EXPECT_EQ(WhyNoErdCommander(text), "There is no file X:\\tools\\more\\I386\\SYSTEM32\\CONFIG\\SOFTWARE.");
    EXPECT_EQ(WhyNoBlueCon(text), "There is no file X:\\tools\\more\\I386\\SYSTEM32\\OOBC*.*.");
  }
  // The other tool's CD, and a folder of the current one.
  EXPECT_EQ(WhyNoErdCommander("U:\\I386"), "There is no file U:\\I386\\I386\\SYSTEM32\\CONFIG\\SOFTWARE.");
  EXPECT_EQ(WhyNoBlueCon("T:\\I386"), "There is no file T:\\I386\\I386\\SYSTEM32\\OOBC*.*.");
  // A path without a separator has no parent that could be the root, even if the current folder is that of a CD.
  host.AddFile("C:\\Current\\tools\\readme.txt", "text");
  host.AddFile("C:\\Current\\I386\\SYSTEM32\\CONFIG\\SOFTWARE", "hive");
  EXPECT_EQ(WhyNoErdCommander("X:"), "There is no file X:\\I386\\SYSTEM32\\CONFIG\\SOFTWARE.");
  EXPECT_EQ(WhyNoErdCommander("tools"), "There is no file tools\\I386\\SYSTEM32\\CONFIG\\SOFTWARE.");
}

// On systems that separate names by slashes, the sentences have slashes, whatever the field has.
TEST_F(CausesTest, Locations_AreSpelledAsTheSystemSpellsThem) {
  host.shows_slashes = true;
  host.AddFile("X:\\cd\\WIN98\\mini.cab", "cabinet");
  ExpectOfEveryFolder("X:\\nowhere", "X:/nowhere does not exist.");
  ExpectOfEveryFolder("X:\\empty", "X:/empty is empty.");
  ExpectOfEveryFolder("X:\\tools\\more\\readme.txt", "X:/tools/more/readme.txt is a file: enter a folder.");
  EXPECT_EQ(WhyNoFolder("X:\\tools"), "X:/tools cannot be used as a folder.");
  EXPECT_EQ(WhyNoServicePack("X:\\tools"), "X:/tools is not a file: enter the path of the installer.");
  EXPECT_EQ(WhyNoWin2KSource("S:\\"), "S:/ is the root of the CD: did you mean S:/I386?");
  EXPECT_EQ(WhyNoWin9xSource("X:\\cd"), "X:/cd is the root of the CD: did you mean X:/cd/WIN98?");
  EXPECT_EQ(WhyNoErdCommander("T:\\I386"), "T:/I386 is a folder of the CD: did you mean its root, T:/?");
  EXPECT_EQ(WhyNoWin9xSource("X:\\tools"), "There is no file X:/tools/mini.cab.");
}

TEST_F(CausesTest, Asking_ChangesNothing) {
  for (const char* text : {"", "X:\\tools", "X:\\empty", "X:\\nowhere", "S:\\", "T:\\I386"}) {
    for (const auto ask : kAskForAFolder) ask(text);
    WhyNoServicePack(text);
  }
  EXPECT_THAT(host.calls, ::testing::IsEmpty());
}

}  // namespace
}  // namespace discwright::wizard
