// Tests that a whole build makes and leaves the files of the table in util/program_folder.h, and no others.
#include "util/program_folder.h"

#include <set>

#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/chosen_discs.h"

namespace discwright::testing {

namespace {

class ProgramFolder : public BuildTest {
 protected:
  void SetUp() override { discs.Insert(Shown::kUpperCase); }

  std::set<std::string> Entries() const {
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(program.folder())) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }
  // The names that a build with every choice made and left.
  std::set<std::string> Left(const std::vector<std::string>& more) const {
    const std::set<std::string> before = Entries();
    const Outcome outcome = Build(Join(discs.Choices(), {"--set", "FrmWin2KInfo.TxtOwner=Jo"}, more));
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    std::set<std::string> left;
    for (const std::string& name : Entries()) {
      if (!before.contains(name)) left.insert(name);
    }
    return left;
  }

  ChosenDiscs discs{place / "my discs"};
};

// The names of the table's entries that a build makes and `stays` accepts. The program's own session file is written by
// the window only, and the list of installed files by the installed program only.
std::set<std::string> InTable(bool (*stays)(const util::FolderItem&)) {
  std::set<std::string> names;
  for (const util::FolderItem& item : util::kProgramFolder) {
    const bool is_made_by_a_build =
        !item.made_by.empty() && item.item != util::Item::kSession && item.item != util::Item::kInstalledList;
    if (is_made_by_a_build && stays(item)) names.emplace(util::NameInFolder(item.item));
  }
  return names;
}

}  // namespace

TEST_F(ProgramFolder, AfterABuild_HoldsTheFilesThatTheTableKeeps) {
  EXPECT_EQ(Left({}), InTable([](const util::FolderItem& item) { return item.made_by != item.deleted_by; }));
}

TEST_F(ProgramFolder, AfterABuildThatCleansUp_HoldsTheFilesThatTheTableNeverDeletes) {
  EXPECT_EQ(Left({"--set", "ChkCleanSession=1"}),
            InTable([](const util::FolderItem& item) { return item.deleted_by.empty(); }));
}

TEST_F(ProgramFolder, AsItShips_HoldsTheFilesOfTheTable) {
  for (const util::FolderItem& item : util::kProgramFolder) {
    std::string path(item.path.substr(1));
    std::replace(path.begin(), path.end(), '\\', '/');
    // On Linux the programs have no ending. There is no help file yet.
    if (path.ends_with(".exe")) path.resize(path.size() - 4);
    const bool ships = item.made_by.empty() && item.item != util::Item::kHelpFile;
    EXPECT_EQ(fs::exists(program / path), ships) << path;
  }
}

}  // namespace discwright::testing
