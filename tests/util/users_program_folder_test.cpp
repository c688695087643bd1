// Tests of filling and updating the program folder of a user.
#include "util/users_program_folder.h"

#include "base/sha256.h"
#include "base/temporary_names.h"
#include "host/names.h"
#include "tests/support/util_fixture.h"

namespace discwright::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kInstalled = "P:\\lib\\discwright";
constexpr const char* kUsers = "U:\\ann\\discwright";

std::string DigestOf(std::string_view content) {
  base::Sha256 digest;
  digest.Add(std::as_bytes(std::span(content)));
  return digest.Finish();
}

class UsersProgramFolder : public UtilFixture {
 protected:
  UsersProgramFolder() {
    host.program_folder = kInstalled;
    host.data_home = "U:\\ann";
    host.shows_slashes = true;
    Install({{"mkisofs.exe", "mastering"}, {"files/vexacd/boot/menu.txt", "menu"}, {"files/key.inf", "key"}});
  }

  // Replaces the installed program by one that ships these files.
  void Install(const std::map<std::string, std::string>& files) {
    std::string list;
    for (const auto& [path, content] : files) {
      host.AddFile(std::string(kInstalled) + "\\" + path, content);
      list.append(DigestOf(content)).append("  ").append(path).append("\n");
    }
    host.AddFile(std::string(kInstalled) + "\\installed.list", list);
    host.AddFile(std::string(kInstalled) + "\\discwright.exe", "front program");
  }
  // Starts the program, which forgets everything that an earlier start has left in memory.
  std::string Start() {
    host.program_folder = kInstalled;
    host.calls.clear();
    notes = {};
    return util::WhyNoUsersFolder(notes);
  }
  static std::string InUsers(const std::string& path) { return std::string(kUsers) + "\\" + path; }
  std::string Users(const std::string& path) const { return host.Content(InUsers(path)); }
  std::vector<std::string> Remarks() const {
    std::vector<std::string> remarks;
    for (const util::Note& remark : notes.remarks())
      remarks.push_back(discwright::host::PathToNative(remark.place) + ": " + remark.cause);
    return remarks;
  }
  bool Calls(std::string_view function) const {
    return std::any_of(host.calls.begin(), host.calls.end(),
                       [&](const std::string& call) { return call.starts_with(function); });
  }
};

TEST_F(UsersProgramFolder, ProgramThatIsNotInstalled_WorksInItsOwnFolder) {
  host.program_folder = "C:\\Discwright";
  EXPECT_EQ(util::WhyNoUsersFolder(notes), "");
  EXPECT_EQ(host.program_folder, "C:\\Discwright");
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_FALSE(util::WorksInUsersFolder());
}

TEST_F(UsersProgramFolder, FirstStart_CopiesWhatIsListedAndWorksThere) {
  EXPECT_EQ(Start(), "");
  EXPECT_EQ(host.program_folder, kUsers);
  EXPECT_TRUE(util::WorksInUsersFolder());
  EXPECT_EQ(Users("mkisofs.exe"), "mastering");
  EXPECT_EQ(Users("files\\vexacd\\boot\\menu.txt"), "menu");
  EXPECT_EQ(Users("installed.list"), host.Content(std::string(kInstalled) + "\\installed.list"));
  EXPECT_FALSE(host.Exists(InUsers("discwright.exe")));
  EXPECT_EQ(host.calls.back(), "WriteWholeFile " + InUsers("installed.list")) << "the list is the sign of the end";
  EXPECT_THAT(Remarks(), ElementsAre("U:/ann/discwright: the program is installed for all users, so your CDs are put "
                                     "together in this folder"));
}

TEST_F(UsersProgramFolder, SecondStart_ReadsAndWritesNoFile) {
  ASSERT_EQ(Start(), "");
  host.FailOn("Sha256OfFile", "", host::ErrorClass::kNotReady);
  host.AddFile(InUsers("mkisofs.exe"), "changed");
  EXPECT_EQ(Start(), "");
  EXPECT_EQ(host.program_folder, kUsers);
  EXPECT_FALSE(Calls("CopyWholeFile"));
  EXPECT_FALSE(Calls("WriteWholeFile"));
  EXPECT_THAT(Remarks(), IsEmpty());
}

TEST_F(UsersProgramFolder, FileThatWasDeleted_IsThereAgainAfterTheNextStart) {
  ASSERT_EQ(Start(), "");
  host.nodes.erase(FakeHost::Key(InUsers("files\\key.inf")));
  EXPECT_EQ(Start(), "");
  EXPECT_EQ(Users("files\\key.inf"), "key");
  EXPECT_THAT(Remarks(), IsEmpty());
}

TEST_F(UsersProgramFolder, NewVersion_ReplacesWhatTheUserHasNotChanged) {
  ASSERT_EQ(Start(), "");
  Install({{"mkisofs.exe", "better"},
           {"files/vexacd/boot/menu.txt", "menu"},
           {"files/key.inf", "new key"},
           {"files/more.txt", "more"}});
  EXPECT_EQ(Start(), "");
  EXPECT_EQ(Users("mkisofs.exe"), "better");
  EXPECT_EQ(Users("files\\key.inf"), "new key");
  EXPECT_EQ(Users("files\\more.txt"), "more");
  EXPECT_THAT(host.calls, Not(::testing::Contains(HasSubstr("menu.txt")))) << "it is the same in both versions";
  EXPECT_THAT(Remarks(),
              ElementsAre("U:/ann/discwright: this folder now has the files of the program that was installed anew"));
}

TEST_F(UsersProgramFolder, FileThatTheUserHasChanged_StaysWithARemark) {
  ASSERT_EQ(Start(), "");
  host.AddFile(InUsers("files\\key.inf"), "my key");
  Install({{"mkisofs.exe", "better"}, {"files/vexacd/boot/menu.txt", "menu"}, {"files/key.inf", "new key"}});
  EXPECT_EQ(Start(), "");
  EXPECT_EQ(Users("files\\key.inf"), "my key");
  EXPECT_EQ(Users("mkisofs.exe"), "better");
  ASSERT_EQ(Remarks().size(), 2U);
  EXPECT_EQ(Remarks()[0],
            "U:/ann/discwright/files/key.inf: this file was changed here, so it stays as it is; the installed program "
            "has another one, P:/lib/discwright/files/key.inf");
}

TEST_F(UsersProgramFolder, FileThatTheProgramNoLongerHas_IsDeletedUnlessTheUserHasChangedIt) {
  ASSERT_EQ(Start(), "");
  host.AddFile(InUsers("files\\key.inf"), "my key");
  Install({{"mkisofs.exe", "mastering"}});
  EXPECT_EQ(Start(), "");
  EXPECT_FALSE(host.Exists(InUsers("files\\vexacd"))) << "an empty folder would come to the CD";
  EXPECT_EQ(Users("files\\key.inf"), "my key");
  EXPECT_THAT(Remarks()[0], HasSubstr("files/key.inf: this file was changed here, so it stays, although"));
}

TEST_F(UsersProgramFolder, FileThatStoodThereBeforeTheFirstStart_Stays) {
  host.AddFile(InUsers("files\\key.inf"), "my key");
  EXPECT_EQ(Start(), "");
  EXPECT_EQ(Users("files\\key.inf"), "my key");
  EXPECT_THAT(Remarks()[0], HasSubstr("key.inf: this file was changed here"));
}

// Each call of an update fails once. Whatever was done before, the next start completes it.
TEST_F(UsersProgramFolder, EachCallOfAnUpdate_MayFail) {
  for (int call = 0;; ++call) {
    std::erase_if(host.nodes, [](const auto& node) { return node.first.starts_with("u:"); });
    Install({{"a", "1"}, {"b", "2"}, {"c/d", "3"}});
    ASSERT_EQ(Start(), "");
    Install({{"a", "one"}, {"b", "two"}});
    host.FailCall(call);
    Start();
    const std::string failed = host.FailedCall();
    if (failed.empty()) break;
    EXPECT_EQ(Start(), "") << failed;
    EXPECT_EQ(Users("a") + " " + Users("b") + " " + Users("c/d"), "one two <missing>") << failed;
    EXPECT_LE(notes.remarks().size(), 1U) << failed << ": a file counts as changed by the user";
  }
}

// Each call of a first start fails once. The start says so, does not use the folder, and the next one completes it.
TEST_F(UsersProgramFolder, EachCallOfAFirstStart_MayFail) {
  for (int call = 0;; ++call) {
    std::erase_if(host.nodes, [](const auto& node) { return node.first.starts_with("u:"); });
    host.FailCall(call);
    const std::string why = Start();
    const std::string failed = host.FailedCall();
    if (failed.empty()) break;
    const bool is_harmless = failed.starts_with("ListFolder");  // by the search for files that killed starts have left
    EXPECT_EQ(why.empty(), is_harmless) << failed;
    EXPECT_EQ(host.program_folder, is_harmless ? kUsers : kInstalled) << failed;
    EXPECT_EQ(Start(), "") << failed;
    EXPECT_EQ(Users("mkisofs.exe") + Users("files\\vexacd\\boot\\menu.txt") + Users("files\\key.inf"),
              "masteringmenukey")
        << failed;
  }
}

TEST_F(UsersProgramFolder, FilesThatAKilledStartHasLeft_AreDeleted) {
  const std::string left = InUsers("files\\" + base::TemporaryName(1, 2));
  host.AddFile(left, "half");
  EXPECT_EQ(Start(), "");
  EXPECT_FALSE(host.Exists(left));
}

TEST_F(UsersProgramFolder, FullDisk_NamesTheFolderTheFileAndWhatToDo) {
  host.FailOn("CopyWholeFile", "key.inf", host::ErrorClass::kDiskFull, "No space left on device");
  EXPECT_EQ(Start(),
            "This program is installed for all users, so it works in the folder U:/ann/discwright. But "
            "U:/ann/discwright/files/key.inf could not be copied from P:/lib/discwright/files/key.inf: No space left "
            "on device.\nMake sure that there is room and that you may write files there, or set the environment "
            "variable XDG_DATA_HOME to another folder. Then start the program again.");
  EXPECT_FALSE(host.Exists(InUsers("installed.list")));
}

TEST_F(UsersProgramFolder, NoHomeFolder_SaysWhichVariableHelps) {
  host.data_home = "";
  EXPECT_THAT(Start(), AllOf(HasSubstr("does not know your home folder"), HasSubstr("XDG_DATA_HOME")));
}

TEST_F(UsersProgramFolder, DamagedListOfTheInstalledProgram_CopiesNothing) {
  const std::string digest = DigestOf("x");
  for (const std::string& list : {std::string(), std::string("x\n"), digest + "  a", digest + " a\n", digest + "  \n",
                                  digest + "  /a\n", digest + "  ../a\n", digest + "  a/../../b\n", digest + "  a\\b\n",
                                  digest.substr(1) + "   a\n", digest + "  a\n\n"}) {
    host.AddFile(std::string(kInstalled) + "\\installed.list", list);
    EXPECT_EQ(Start(),
              "The list of the installed files, P:/lib/discwright/installed.list, is damaged. Install the "
              "program again.")
        << list;
    EXPECT_FALSE(host.Exists(kUsers));
  }
}

TEST_F(UsersProgramFolder, DamagedListOfTheUser_KeepsWhatDiffers) {
  ASSERT_EQ(Start(), "");
  host.AddFile(InUsers("installed.list"), "damaged");
  host.AddFile(InUsers("files\\key.inf"), "my key");
  EXPECT_EQ(Start(), "");
  EXPECT_EQ(Users("files\\key.inf"), "my key");
  EXPECT_EQ(Users("installed.list"), host.Content(std::string(kInstalled) + "\\installed.list"));
}

}  // namespace
}  // namespace discwright::testing
