// Tests of starting Windows programs. The command "wine" is a script of the test.
#include "host/processes.h"

#include <gmock/gmock.h>

#include "host/posix/find_program.h"
#include "tests/host/posix/stand_in_program.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::RunToEnd;
using testing::SearchPath;
using testing::TempFolder;

class WindowsProgramLineTest : public ::testing::Test {
 protected:
  void AddWine(const std::string& name = "bin/wine") const { testing::AddStandIn(folder_, name); }
  std::vector<std::string> Arguments() const { return testing::ArgumentsOfStandIn(folder_); }
  std::string UnderWine(std::string_view name) const {
    std::string path = "Z:" + folder_.Native(name);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
  }

  TempFolder folder_;
};

TEST_F(WindowsProgramLineTest, ProgramAndPath_AreQuotedAndSpelledForWine) {
  AddWine();
  folder_.Write("job/Tool.exe", "");
  folder_.MakeFolder("job/Cd");
  const SearchPath path(folder_.Native("bin"));
  const auto line = WindowsProgramLine(folder_.Core("JOB\\tool.EXE"), "/integrate:", folder_.Core("job\\cd"));
  ASSERT_TRUE(line);
  EXPECT_EQ(*line, "\"" + folder_.Native("bin/wine") + "\" \"" + folder_.Native("job/Tool.exe") +
                       "\" \"/integrate:" + UnderWine("job/Cd") + "\"");
}

TEST_F(WindowsProgramLineTest, AwkwardPaths_ArriveExactlyThroughTheLauncher) {
  AddWine();
  const SearchPath path(folder_.Native("bin"));
  for (const std::string name : {"plain", "with two  blanks", "Ümläut", "a\"quote", "\"", "$HOME", "it's", "-x", "100%",
                                 "`id`", "line\nend", "漢字"}) {
    folder_.Write(name + "/Tool.exe", "");
    const auto line = WindowsProgramLine(folder_.Core(name + "\\tool.exe"), "-path:", folder_.Core(name));
    ASSERT_TRUE(line) << name;
    RunToEnd(*line);
    EXPECT_THAT(Arguments(), ElementsAre(folder_.Native(name + "/Tool.exe"), "-path:" + UnderWine(name))) << *line;
  }
}

TEST_F(WindowsProgramLineTest, ProgramThatTheUserHasPutInQuotes_IsThatWithoutThem) {
  AddWine();
  folder_.Write("my job/Tool.exe", "");
  const SearchPath path(folder_.Native("bin"));
  EXPECT_EQ(WindowsProgramLine('"' + folder_.Core("my job\\tool.exe") + '"', "-s:", folder_.Core("my job")),
            WindowsProgramLine(folder_.Core("my job\\tool.exe"), "-s:", folder_.Core("my job")));
}

TEST_F(WindowsProgramLineTest, OptionThatEndsInQuoteOrBackslash_IsOneArgumentWithItsPath) {
  AddWine();
  const SearchPath path(folder_.Native("bin"));
  for (const std::string option : {"", "/a b:", "/a\"", "\\", "\\\\\""}) {
    const auto line = WindowsProgramLine(folder_.Core("tool.exe"), option, folder_.Core("cd"));
    ASSERT_TRUE(line) << option;
    EXPECT_THAT(ParseCommandLine(*line).arguments,
                ElementsAre(folder_.Native("bin/wine"), folder_.Native("tool.exe"), option + UnderWine("cd")));
  }
}

TEST_F(WindowsProgramLineTest, RootFolder_EndsInABackslashThatQuotesNothing) {
  AddWine();
  const SearchPath path(folder_.Native("bin"));
  const auto line = WindowsProgramLine(folder_.Core("tool.exe"), "", "\\");
  ASSERT_TRUE(line);
  EXPECT_THAT(ParseCommandLine(*line).arguments,
              ElementsAre(folder_.Native("bin/wine"), folder_.Native("tool.exe"), "Z:\\"));
}

TEST_F(WindowsProgramLineTest, WineInAnAwkwardFolder_IsRun) {
  for (const std::string name : {"with blank", "a\"quote", "blank and \" quote", "back\\slash", "Ümläut"}) {
    AddWine(name + "/wine");
    const SearchPath path(folder_.Native(name));
    const auto line = WindowsProgramLine(folder_.Core("tool.exe"), "/x ", folder_.Core("cd"));
    ASSERT_TRUE(line) << name;
    EXPECT_THAT(ParseCommandLine(*line).arguments,
                ElementsAre(folder_.Native(name + "/wine"), folder_.Native("tool.exe"), "/x " + UnderWine("cd")));
  }
}

TEST_F(WindowsProgramLineTest, WhatIsNoProgram_IsPassedOver) {
  folder_.MakeFolder("folder/wine");
  folder_.Write("text/wine", "");
  folder_.Write("file", "");
  AddWine("other/Wine");
  AddWine("here/wine");
  AddWine("later/wine");
  const std::string nothing = folder_.Native("folder") + ":" + folder_.Native("text") +
                              "::" + folder_.Native("missing") + ":" + folder_.Native("file") + ":" +
                              folder_.Native("other");
  const SearchPath path(nothing + ":" + folder_.Native("here") + ":" + folder_.Native("later") + ":");
  const auto line = WindowsProgramLine("\\tool.exe", "", "\\");
  ASSERT_TRUE(line);
  EXPECT_EQ(ParseCommandLine(*line).arguments[0], folder_.Native("here/wine"));
  const SearchPath without(nothing);
  EXPECT_FALSE(WindowsProgramLine("\\tool.exe", "", "\\"));
}

TEST_F(WindowsProgramLineTest, EmptyFolderOfThePath_IsNotTheCurrentFolder) {
  AddWine("wine");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.native());
  for (const char* folders : {"", ":", "::"}) {
    const SearchPath path(folders);
    EXPECT_FALSE(WindowsProgramLine("\\tool.exe", "", "\\")) << folders;
  }
  const SearchPath path(".");
  const auto line = WindowsProgramLine("\\tool.exe", "", "\\");
  std::filesystem::current_path(before);
  ASSERT_TRUE(line);
  EXPECT_EQ(ParseCommandLine(*line).arguments[0], folder_.Native("wine"));
}

}  // namespace
}  // namespace discwright::host
