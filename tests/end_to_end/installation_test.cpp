// Tests of what `make install`, `make uninstall` and `make package` put where, and that it works there.
#include "tests/end_to_end/installation.h"

#include <set>

#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

const std::vector<std::pair<std::string, std::string>> kOldDate = {{"SOURCE_DATE_EPOCH", "1000000000"}};

class Installed : public ::testing::Test {
 protected:
  TemporaryFolder place;
  fs::path prefix = place / "pre fix";
};

// The paths of all files below a folder, relative to it.
std::set<std::string> FilesBelow(const fs::path& folder) {
  std::set<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_directory()) files.insert(entry.path().lexically_relative(folder).string());
  }
  return files;
}

}  // namespace

TEST_F(Installed, ListOfFiles_HasTheDigestOfEachButTheFrontPrograms) {
  const Installation installation(prefix);
  const Outcome checked =
      RunProgram({"sha256sum", "--check", "--strict", "installed.list"}, {.working_folder = installation.folder()});
  EXPECT_EQ(checked.exit_code, 0) << checked.out << checked.err;
  std::set<std::string> installed = FilesBelow(installation.folder());
  for (const char* name : {"discwright", "discwright-build", "installed.list"}) installed.erase(name);
  std::vector<std::string> listed;  // with repetitions, which would be a mistake
  for (const std::string& line : LinesWith(checked.out, ": OK")) listed.push_back(line.substr(0, line.size() - 4));
  EXPECT_THAT(listed, ::testing::UnorderedElementsAreArray(installed));
}

TEST_F(Installed, Commands_AreRelativeLinksToThePrograms) {
  const Installation installation(prefix);
  const fs::path command = installation / "bin/discwright-build";
  EXPECT_EQ(fs::read_symlink(command), "../lib/discwright/discwright-build");
  fs::rename(prefix, place / "elsewhere");
  const Outcome outcome = RunProgram({(place / "elsewhere/bin/discwright-build").string(), "--version"});
  EXPECT_THAT(outcome.out, ::testing::StartsWith("discwright-build "));
}

TEST_F(Installed, Desktop_FindsTheMenuEntryTheDescriptionAndTheIcons) {
  const Installation installation(prefix);
  EXPECT_TRUE(fs::exists(installation / "share/applications/org.example.discwright.desktop"));
  EXPECT_TRUE(fs::exists(installation / "share/metainfo/org.example.discwright.metainfo.xml"));
  EXPECT_TRUE(fs::exists(installation / "share/doc/discwright/LICENSE"));
  EXPECT_TRUE(fs::exists(installation / "share/doc/discwright/NOTICE"));
  const fs::path icons = installation / "share/icons/hicolor";
  EXPECT_TRUE(fs::exists(icons / "scalable/apps/org.example.discwright.svg"));
  for (const std::string size : {"16", "22", "24", "32", "48", "64", "128", "256", "512"}) {
    EXPECT_TRUE(fs::exists(icons / (size + "x" + size) / "apps/org.example.discwright.png")) << size;
  }
}

TEST_F(Installed, Uninstalling_RemovesEveryFileOfTheProgramAndNoOther) {
  const Installation installation(prefix);
  const std::set<std::string> foreign = {"bin/other", "share/applications/other.desktop"};
  for (const std::string& file : foreign) WriteFile(prefix / file, "");
  EXPECT_EQ(Uninstall(prefix).exit_code, 0);
  EXPECT_EQ(FilesBelow(prefix), foreign);
}

TEST_F(Installed, UninstallingWhereNothingIsInstalled_IsAFailureThatRemovesNothing) {
  WriteFile(prefix / "lib/discwright/own.txt", "");
  EXPECT_EQ(Uninstall(prefix).exit_code, 1);
  EXPECT_TRUE(fs::exists(prefix / "lib/discwright/own.txt"));
}

TEST_F(Installed, Package_HasOneTimeAndOneOwnerSoThatItIsTheSameEachTime) {
  ASSERT_EQ(Package(place / "a.tar.gz", {.environment = kOldDate}).exit_code, 0);
  ASSERT_EQ(Package(place / "b.tar.gz", {.environment = kOldDate}).exit_code, 0);
  EXPECT_EQ(ReadFile(place / "a.tar.gz"), ReadFile(place / "b.tar.gz"));
  const Outcome listed =
      RunProgram({"tar", "--list", "--verbose", "--numeric-owner", "--file", (place / "a.tar.gz").string()},
                 {.environment = {{"TZ", "UTC"}}});
  const std::vector<std::string> lines = LinesWith(listed.out, "discwright-");
  EXPECT_GT(lines.size(), 20U);
  EXPECT_THAT(lines, ::testing::Each(::testing::ContainsRegex(" 0/0 .* 2001-09-09 01:46 discwright-")));
}

TEST_F(Installed, Package_HoldsOneFolderThatWorksWhereItIsUnpacked) {
  ASSERT_EQ(Package(place / "program.tar.gz").exit_code, 0);
  fs::create_directory(prefix);
  RunProgram({"tar", "--extract", "--file", (place / "program.tar.gz").string()}, {.working_folder = prefix});
  const std::vector<fs::path> folders(fs::directory_iterator(prefix), fs::directory_iterator{});
  ASSERT_THAT(folders, SizeIs(1));
  EXPECT_THAT(folders[0].filename().string(), ::testing::MatchesRegex("discwright-[0-9.]+"));
  const std::string image = (place / "package.iso").string();
  const Outcome outcome =
      RunProgram({(folders[0] / "discwright-build").string(), "-o", image}, {.environment = kOldDate});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  const ProgramCopy program(place / "program");
  EXPECT_EQ(program.Build(Output(place / "program.iso"), {.environment = kOldDate}).exit_code, 0);
  EXPECT_EQ(ReadFile(image), ReadFile(place / "program.iso"));
}

// The program for scripts runs on machines without a desktop.
TEST_F(Installed, ProgramForScripts_NeedsNoLibraryOfAWindow) {
  const Installation installation(prefix, "program");
  const Outcome libraries = RunProgram({"ldd", (installation.folder() / "discwright-build").string()});
  EXPECT_THAT(libraries.out, HasSubstr("libc.so"));
  for (const char* name : {"Qt", "libX", "libxcb", "libGL", "libEGL", "wayland"}) {
    EXPECT_THAT(libraries.out, ::testing::Not(HasSubstr(name)));
  }
}

}  // namespace discwright::testing
