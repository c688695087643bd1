// What stands in the way of linking: other volumes, limits, a changing disk, a crash.
#include "tools/dfl/linking.h"

#include <sys/mount.h>
#include <unistd.h>

#include "tests/dfl/dfl_fixture.h"

namespace discwright::tools::dfl {
namespace {

using host::LinkAnswer;
using host::LinkEnd;
using host::Status;
using testing::DflTest;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// Something mounted on a folder of the test.
class Mounted {
 public:
  Mounted(const std::string& what, const std::string& place, const char* type, unsigned long flags) : place_(place) {
    mounted_ = mount(what.c_str(), place.c_str(), type, flags, nullptr) == 0;
  }
  Mounted(const Mounted&) = delete;
  Mounted& operator=(const Mounted&) = delete;
  ~Mounted() {
    if (mounted_) umount2(place_.c_str(), MNT_DETACH);
  }
  bool mounted() const { return mounted_; }

 private:
  std::string place_;
  bool mounted_;
};

class LinkingTest : public DflTest {
 protected:
  LinkingTest() { machine_.processors = 1; }

  // Makes the links of a run fail as on a file system where a file has at most `most` names.
  void LimitLinks(std::uint64_t most) {
    machine_.calls.make_link = [most](std::string_view existing, std::string_view fresh) {
      if (host::FactsOf(existing)->links < most) return host::MakeHardLink(existing, fresh);
      return LinkAnswer{LinkEnd::kTooManyLinks, Status::Failure(host::ErrorClass::kOther, "Too many links")};
    };
  }
  void FailLinks(LinkEnd end, host::ErrorClass error, const std::string& cause) {
    machine_.calls.make_link = [=](std::string_view, std::string_view) {
      return LinkAnswer{end, Status::Failure(error, cause)};
    };
  }
  // Does something just before the first link is made.
  void BeforeFirstLink(const std::function<void()>& action) {
    machine_.calls.make_link = [action, done = std::make_shared<std::once_flag>()](std::string_view existing,
                                                                                   std::string_view fresh) {
      std::call_once(*done, action);
      return host::MakeHardLink(existing, fresh);
    };
  }
};

TEST_F(LinkingTest, OtherVolume_IsNeverLinkedTo) {
  Write("a", "content");
  Write("c", "content");
  folder_.MakeFolder("b");
  const Mounted disk("discwright-test", folder_.Native("b"), "tmpfs", 0);
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  Write("b/1", "content");
  Write("b/2", "content");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(AreLinked("a", "c"));
  EXPECT_TRUE(AreLinked("b/1", "b/2"));
  EXPECT_EQ(LastLine(), "2 files linked, 14 bytes saved\n");
}

TEST_F(LinkingTest, OneVolumeMountedTwice_IsLinkedWithinEachMount) {
  const host::testing::TempFolder elsewhere;
  elsewhere.Write("1", "content");
  elsewhere.Write("2", "content");
  folder_.MakeFolder("b");
  const Mounted bound(elsewhere.native(), folder_.Native("b"), nullptr, MS_BIND);
  if (!bound.mounted()) GTEST_SKIP() << "mounting is not permitted";
  Write("a", "content");
  Write("c", "content");
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_TRUE(AreLinked("a", "c"));
  EXPECT_TRUE(AreLinked("b/1", "b/2"));
  EXPECT_FALSE(AreLinked("a", "b/1"));
}

TEST_F(LinkingTest, TooManyLinks_StartANewGroup) {
  for (const char* name : {"a", "b", "c", "d", "e"}) Write(name, "content");
  LimitLinks(2);
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_TRUE(AreLinked("a", "b"));
  EXPECT_TRUE(AreLinked("c", "d"));
  EXPECT_FALSE(AreLinked("a", "c"));
  EXPECT_EQ(LinksOf("e"), 1u);
  EXPECT_EQ(LastLine(), "2 files linked, 14 bytes saved\n");
}

TEST_F(LinkingTest, TooManyLinksForAllNamesOfAFile_SaveNothing) {
  Write("a", "content");
  Write("b", "content");
  MakeLink("b", "c");
  LimitLinks(2);
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(AreLinked("a", "b"));
  EXPECT_EQ(LinksOf("c"), 1u);
  EXPECT_EQ(LastLine(), "1 files linked, 0 bytes saved\n");
}

TEST_F(LinkingTest, FileSystemWithoutLinks_IsSaidOnceAndIsNoProblem) {
  for (const char* name : {"a", "b", "f/c"}) Write(name, "content");
  for (const char* name : {"f/d", "f/e"}) Write(name, "other content");
  FailLinks(LinkEnd::kUnsupported, host::ErrorClass::kAccessDenied, "Operation not permitted");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_THAT(errors_, IsEmpty());
  EXPECT_THAT(output_.str(), HasSubstr("\nThe file system of " + folder_.native() +
                                       " has no hard links; duplicate files stay as they are.\n0 files linked, 0 "
                                       "bytes saved\n"));
}

TEST_F(LinkingTest, LinkThatFails_IsNamedAndTheRestGoesOn) {
  for (const char* name : {"a", "b", "c"}) Write(name, "content");
  machine_.calls.make_link = [first = true](std::string_view existing, std::string_view fresh) mutable {
    if (!std::exchange(first, false)) return host::MakeHardLink(existing, fresh);
    return LinkAnswer{LinkEnd::kFailed, Status::Failure(host::ErrorClass::kAccessDenied, "Permission denied")};
  };
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + folder_.Native("b") + " cannot be linked: Permission denied\n");
  EXPECT_TRUE(AreLinked("a", "c"));
}

// The monitor takes the system's sentence for the end of the image, which is still to be made.
TEST_F(LinkingTest, FullDisk_IsNotSaidInTheSystemsWords) {
  Write("a", "content");
  Write("b", "content");
  FailLinks(LinkEnd::kFailed, host::ErrorClass::kDiskFull, "No space left on device");
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + folder_.Native("b") + " cannot be linked: the disk is full\n");
}

TEST_F(LinkingTest, ReplacementThatFails_LeavesTheFileAndNoPassingName) {
  Write("a", "content");
  Write("b", "content");
  machine_.calls.replace = [](std::string_view, std::string_view) {
    return Status::Failure(host::ErrorClass::kNotReady, "Input/output error");
  };
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + folder_.Native("b") + " cannot be linked: Input/output error\n");
  EXPECT_THAT(folder_.Names(), ElementsAre("a", "b"));
  EXPECT_FALSE(AreLinked("a", "b"));
}

TEST_F(LinkingTest, TakenPassingName_IsPassedOver) {
  Write("a", "content");
  Write("b", "content");
  folder_.MakeFolder(".dfl-link-0");
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_TRUE(AreLinked("a", "b"));
  EXPECT_THAT(folder_.Names(), ElementsAre(".dfl-link-0", "a", "b"));
}

TEST_F(LinkingTest, KillBetweenLinkAndReplacement_LosesNothingAndTheNextRunCleansUp) {
  Write("a", "content");
  Write("b", "content");
  Machine killed;
  killed.calls.replace = [](std::string_view, std::string_view) -> Status { _exit(9); };
  std::swap(killed, machine_);
  EXPECT_EXIT(Run(), ::testing::ExitedWithCode(9), "");
  std::swap(killed, machine_);
  EXPECT_THAT(folder_.Names(), ElementsAre(".dfl-link-0", "a", "b"));
  EXPECT_EQ(folder_.Read("a") + folder_.Read("b"), "contentcontent");
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_THAT(folder_.Names(), ElementsAre("a", "b"));
  EXPECT_TRUE(AreLinked("a", "b"));
}

TEST_F(LinkingTest, KillInTheMiddleOfTheReplacement_LosesNothingAndTheNextRunCleansUp) {
  Write("a", "content");
  MakeLink("a", "b");
  Write(".dfl-link-7", "content");  // what was b, under the name that was to be removed
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_THAT(folder_.Names(), ElementsAre("a", "b"));
  EXPECT_TRUE(AreLinked("a", "b"));
  EXPECT_EQ(folder_.Read("a"), "content");
}

TEST_F(LinkingTest, NamesThatOnlyLookLikePassingOnes_Stay) {
  const std::vector<std::string> names = {".dfl-link-", ".dfl-link-1x", ".dfl-link-2", "dfl-link-3"};
  Write(names[0], "content");
  MakeLink(names[0], names[1]);
  Write(names[2], "the only name of its file");
  MakeLink(names[0], names[3]);
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(folder_.Names(), names);
}

TEST_F(LinkingTest, FileThatChangesBeforeItIsLinked_IsLeftAloneWithAMessage) {
  for (const char* name : {"a", "b", "c"}) Write(name, "content");
  BeforeFirstLink([&] { Write("c", "changed content"); });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + folder_.Native("c") + " has changed meanwhile and is left as it is\n");
  EXPECT_TRUE(AreLinked("a", "b"));
  EXPECT_EQ(folder_.Read("c"), "changed content");
}

TEST_F(LinkingTest, FileOfTheSameSizeButANewTime_CountsAsChanged) {
  for (const char* name : {"a", "b", "c"}) Write(name, "content");
  BeforeFirstLink([&] {
    Write("c", "CONTENT");
    const auto time = std::filesystem::last_write_time(folder_.Native("c"));
    std::filesystem::last_write_time(folder_.Native("c"), time + std::chrono::seconds(5));
  });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(folder_.Read("c"), "CONTENT");
}

TEST_F(LinkingTest, KeptFileThatChanges_IsLeftAloneAndTheOthersAreComparedAnew) {
  for (const char* name : {"a", "b", "c", "d"}) Write(name, "content");
  machine_.calls.make_link = [&, first = true](std::string_view existing, std::string_view fresh) mutable {
    if (!std::exchange(first, false)) return host::MakeHardLink(existing, fresh);
    Write("a", "changed content");
    return LinkAnswer{LinkEnd::kFailed, Status::Failure(host::ErrorClass::kOther, "Interrupted")};
  };
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + folder_.Native("a") + " has changed meanwhile and is left as it is\ndfl: " +
                         folder_.Native("b") + " cannot be linked: Interrupted\n");
  EXPECT_EQ(folder_.Read("a"), "changed content");
  EXPECT_TRUE(AreLinked("c", "d"));
  EXPECT_FALSE(AreLinked("a", "c"));
}

TEST_F(LinkingTest, FileReplacedByALinkAfterTheScan_IsNotFollowed) {
  const host::testing::TempFolder outside;
  outside.Write("file", "content");
  Write("a", "content");
  Write("b", "content");
  AtLine("Finding", [&] {
    std::filesystem::remove(folder_.Native("b"));
    folder_.Link(outside.Native("file"), "b");
  });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_THAT(errors_, HasSubstr("b cannot be read: "));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Native("b")));
}

TEST_F(LinkingTest, FileThatVanishesOrShrinksAfterTheScan_IsNamedAndTheRestGoesOn) {
  for (const char* name : {"a", "b", "c", "d"}) Write(name, "content");
  AtLine("Calculating", [&] {
    std::filesystem::remove(folder_.Native("a"));
    Write("c", "con");
  });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + folder_.Native("a") + " cannot be read: No such file or directory\ndfl: " +
                         folder_.Native("c") + " cannot be read: The file has changed\n");
  EXPECT_TRUE(AreLinked("b", "d"));
}

TEST_F(LinkingTest, FirstOfAPairThatVanishesAfterTheScan_IsNamed) {
  Write("a", "content");
  Write("b", "content");
  AtLine("Calculating", [&] { std::filesystem::remove(folder_.Native("a")); });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_THAT(errors_, HasSubstr("a cannot be read: No such file or directory\n"));
  EXPECT_EQ(LinksOf("b"), 1u);
}

TEST_F(LinkingTest, UnreadableNameWithANewLine_IsShownOnOneLine) {
  Write("a", "content");
  Write("new\nline", "content");
  AtLine("Calculating", [&] { std::filesystem::remove(folder_.Native("new\nline")); });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + folder_.Native("new\\x0Aline") + " cannot be read: No such file or directory\n");
}

}  // namespace
}  // namespace discwright::tools::dfl
