// Tests of finding the program of a command line.
#include "host/posix/find_program.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::TempFolder;

class CommandLine : public ::testing::Test {
 protected:
  void Program(std::string_view name) const {
    folder_.Write(name, "#!/bin/sh\n");
    folder_.SetMode(name, 0755);
  }
  std::vector<std::string> Parse(std::string_view command_line) const {
    return ParseCommandLine(command_line).arguments;
  }

  TempFolder folder_;
};

TEST_F(CommandLine, ProgramWithArguments_IsSplit) {
  Program("tool");
  EXPECT_THAT(Parse(folder_.Core("tool") + " one  two\tthree"),
              ElementsAre(folder_.Native("tool"), "one", "two", "three"));
}

TEST_F(CommandLine, ProgramInAnotherCase_IsFound) {
  Program("Dir/Tool");
  EXPECT_THAT(Parse(folder_.Core("DIR\\TOOL") + " x"), ElementsAre(folder_.Native("Dir/Tool"), "x"));
}

TEST_F(CommandLine, Exe_IsRemovedOrAdded) {
  Program("tool");
  Program("other.exe");
  EXPECT_THAT(Parse(folder_.Core("tool.EXE") + " x"), ElementsAre(folder_.Native("tool"), "x"));
  EXPECT_THAT(Parse(folder_.Core("other") + " x"), ElementsAre(folder_.Native("other.exe"), "x"));
}

TEST_F(CommandLine, UnquotedProgramWithBlanks_IsTheShortestPartThatExists) {
  Program("my tool new");
  EXPECT_THAT(Parse(folder_.Core("my tool new x")), ElementsAre(folder_.Native("my tool new"), "x"));
  Program("my tool");
  EXPECT_THAT(Parse(folder_.Core("my tool new x")), ElementsAre(folder_.Native("my tool"), "new", "x"));
}

TEST_F(CommandLine, QuotedProgram_IsTakenWhole) {
  Program("my");
  Program("my tool");
  EXPECT_THAT(Parse("\"" + folder_.Core("my tool") + "\" \"a b\""), ElementsAre(folder_.Native("my tool"), "a b"));
  EXPECT_THAT(Parse("\"" + folder_.Core("my tool")), ElementsAre(folder_.Native("my tool")));
}

TEST_F(CommandLine, LeadingBlanks_AreSkipped) {
  Program("tool");
  EXPECT_THAT(Parse("  " + folder_.Core("tool")), ElementsAre(folder_.Native("tool")));
}

TEST_F(CommandLine, Bat_IsRunByTheShellAndNeedsNoMark) {
  folder_.Write("My CD.Bat", "");
  folder_.SetMode("My CD.Bat", 0644);
  EXPECT_THAT(Parse(folder_.Core("my cd.bat") + " x"), ElementsAre("/bin/sh", folder_.Native("My CD.Bat"), "x"));
}

TEST_F(CommandLine, Arguments_ArePassedAsTheyAre) {
  Program("tool");
  EXPECT_THAT(Parse(folder_.Core("tool") + " C:\\a\\ $HOME 'x *"),
              ElementsAre(folder_.Native("tool"), "C:\\a\\", "$HOME", "'x", "*"));
}

TEST_F(CommandLine, MissingProgram_IsNotFoundAndNamed) {
  const Command command = ParseCommandLine(folder_.Core("missing") + " x");
  EXPECT_EQ(command.status.error, ErrorClass::kNotFound);
  EXPECT_THAT(command.status.cause, HasSubstr(": " + folder_.Native("missing")));
  EXPECT_THAT(command.arguments, IsEmpty());
}

TEST_F(CommandLine, FileThatIsNoProgram_IsDeniedAndNamed) {
  folder_.Write("text", "");
  const Command command = ParseCommandLine(folder_.Core("text"));
  EXPECT_EQ(command.status.error, ErrorClass::kAccessDenied);
  EXPECT_THAT(command.status.cause, HasSubstr(": " + folder_.Native("text")));
}

TEST_F(CommandLine, FolderOrPipe_IsNoProgram) {
  folder_.MakeFolder("folder");
  folder_.Pipe("pipe");
  EXPECT_FALSE(ParseCommandLine(folder_.Core("folder")).status.ok());
  EXPECT_FALSE(ParseCommandLine(folder_.Core("pipe")).status.ok());
}

TEST_F(CommandLine, NothingAtAll_IsNotFound) {
  for (const char* line : {"", "  ", "\"\"", "\"", "\"\" x"}) {
    EXPECT_EQ(ParseCommandLine(line).status.error, ErrorClass::kNotFound) << line;
  }
}

}  // namespace
}  // namespace discwright::host
