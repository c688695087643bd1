// Tests of the home folder and the file manager. The command "xdg-open" is a script of the test.
#include "host/desktop.h"

#include <gmock/gmock.h>
#include <pwd.h>
#include <unistd.h>

#include "host/posix/find_program.h"
#include "tests/host/posix/stand_in_program.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::SearchPath;
using testing::TempFolder;
using testing::Variable;

TEST(DriveRoots, SystemWithoutDrives_HasOneRoot) { EXPECT_THAT(DriveRoots(), ElementsAre("\\")); }

TEST(HomeFolder, AbsoluteHome_IsThatInTheCoresSpelling) {
  const Variable home("HOME", "/home/Jörg's/a\\b/");
  EXPECT_EQ(HomeFolder(),
            "\\home\\Jörg's\\a\xEF\x81\x9C"
            "b");
  const Variable root("HOME", "/");
  EXPECT_EQ(HomeFolder(), "\\");
}

TEST(HomeFolder, HomeThatIsMissingOrRelative_IsTheOneOfTheListOfUsers) {
  const passwd* const user = getpwuid(getuid());
  const std::string expected = user != nullptr && *user->pw_dir == '/' ? PathFromNative(user->pw_dir) : "\\";
  for (const char* value : {static_cast<const char*>(nullptr), "", "home/user", "~"}) {
    const Variable home("HOME", value);
    EXPECT_EQ(HomeFolder(), expected) << (value != nullptr ? value : "not set");
  }
}

TEST(DataHome, AbsolutePathOfItsVariable_IsThat) {
  const Variable data("XDG_DATA_HOME", "/data of/Jörg/");
  EXPECT_EQ(DataHome(), "\\data of\\Jörg");
}

TEST(DataHome, VariableThatIsMissingOrRelative_IsInTheHomeFolder) {
  const Variable home("HOME", "/home/Jörg");
  for (const char* value : {static_cast<const char*>(nullptr), "", "data", "./data"}) {
    const Variable data("XDG_DATA_HOME", value);
    EXPECT_EQ(DataHome(), "\\home\\Jörg\\.local\\share") << (value != nullptr ? value : "not set");
  }
}

class FileManagerLineTest : public ::testing::Test {
 protected:
  FileManagerLineTest() { testing::AddStandIn(folder_, "my bin/xdg-open"); }

  std::vector<std::string> ArgumentsFor(std::string_view folder) const {
    testing::RunToEnd(FileManagerLine(folder));
    return testing::ArgumentsOfStandIn(folder_);
  }

  TempFolder folder_;
  SearchPath path_{folder_.Native("missing") + ":" + folder_.Native("my bin")};
};

TEST_F(FileManagerLineTest, FolderWithAnAwkwardName_IsTheOneArgument) {
  for (const std::string name : {"two  blanks", "Ümläut", "a\"quote", "quote and \" blank", "it's", "$HOME", "-x",
                                 "%20", "`id`", "漢字", "missing"}) {
    if (name != "missing") folder_.MakeFolder(name);
    EXPECT_THAT(ArgumentsFor(folder_.Core(name)), ElementsAre(folder_.Native(name)));
  }
}

TEST_F(FileManagerLineTest, NameInAnotherLetterCase_IsTheOneOfTheDisk) {
  folder_.MakeFolder("My Files/Tools");
  EXPECT_THAT(ArgumentsFor(folder_.Core("MY FILES\\tools\\")), ElementsAre(folder_.Native("My Files/Tools")));
  EXPECT_THAT(ArgumentsFor("\\"), ElementsAre("/"));
}

TEST_F(FileManagerLineTest, RelativeFolder_IsMadeAbsolute) {
  EXPECT_THAT(ArgumentsFor("files"), ElementsAre((std::filesystem::current_path() / "files").string()));
}

TEST_F(FileManagerLineTest, NoFolder_IsTheHomeFolder) {
  const Variable home("HOME", folder_.native().c_str());
  EXPECT_THAT(ArgumentsFor(""), ElementsAre(folder_.native()));
}

TEST_F(FileManagerLineTest, SystemWithoutTheCommand_HasNoLineAndStartsNothing) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Native("my bin"));
  {
    const SearchPath path(folder_.Native("missing"));
    EXPECT_EQ(FileManagerLine(folder_.Core()), "");
    EXPECT_EQ(SystemProgramRunner()->StartProcess(FileManagerLine(folder_.Core()), 0, 0), nullptr);
  }
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace discwright::host
