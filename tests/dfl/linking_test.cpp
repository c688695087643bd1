// Tests of linking when it fails: link limits, file systems without links, files that change, an interrupted run.
#include "tools/dfl/linking.h"

#include "tests/dfl/dfl_fixture.h"
#include "tools/temporary_link.h"

namespace discwright::tools::dfl {
namespace {

using host::LinkAnswer;
using host::LinkEnd;
using host::Status;
using testing::DflTest;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class LinkingTest : public DflTest {
 protected:
  LinkingTest() { machine_.processors = 1; }

  // Makes links fail as on a file system where a file can have at most `most` names.
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
  // Calls a function just before the first link is made.
  void BeforeFirstLink(const std::function<void()>& action) {
    machine_.calls.make_link = [action, done = std::make_shared<std::once_flag>()](std::string_view existing,
                                                                                   std::string_view fresh) {
      std::call_once(*done, action);
      return host::MakeHardLink(existing, fresh);
    };
  }
};

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

TEST_F(LinkingTest, FileSystemWithoutLinks_IsReportedOnceAndIsNoProblem) {
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
  EXPECT_EQ(errors_, "dfl: " + Shown("b") + " cannot be linked: Permission denied\n");
  EXPECT_TRUE(AreLinked("a", "c"));
}

// The monitor would take the system's sentence for a full disk as a failure of the mastering, which comes later.
TEST_F(LinkingTest, FullDisk_IsReportedWithoutTheSystemsSentence) {
  Write("a", "content");
  Write("b", "content");
  FailLinks(LinkEnd::kFailed, host::ErrorClass::kDiskFull, "No space left on device");
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + Shown("b") + " cannot be linked: the disk is full\n");
}

TEST_F(LinkingTest, ReplacementThatFails_LeavesTheFileAndNoTemporaryName) {
  Write("a", "content");
  Write("b", "content");
  machine_.calls.replace = [](std::string_view, std::string_view) {
    return Status::Failure(host::ErrorClass::kNotReady, "Input/output error");
  };
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + Shown("b") + " cannot be linked: Input/output error\n");
  EXPECT_THAT(folder_.Names(), ElementsAre("a", "b"));
  EXPECT_FALSE(AreLinked("a", "b"));
}

TEST_F(LinkingTest, TakenTemporaryName_IsSkipped) {
  Write("a", "content");
  Write("b", "content");
  folder_.MakeFolder(TemporaryLinkName(0));
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_TRUE(AreLinked("a", "b"));
  EXPECT_THAT(folder_.Names(), ElementsAre(TemporaryLinkName(0), "a", "b"));
}

TEST_F(LinkingTest, KillInTheMiddleOfTheReplacement_LosesNothingAndTheNextRunCleansUp) {
  Write("a", "content");
  MakeLink("a", "b");
  Write(TemporaryLinkName(7), "content");  // the link that replaces b, under its temporary name
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_THAT(folder_.Names(), ElementsAre("a", "b"));
  EXPECT_TRUE(AreLinked("a", "b"));
  EXPECT_EQ(folder_.Read("a"), "content");
  EXPECT_THAT(output_.str(),
              HasSubstr("\nRemoved " + Shown(TemporaryLinkName(7)) + ", which an interrupted run had left.\n"));
}

TEST_F(LinkingTest, NamesThatResembleTemporaryOnes_Stay) {
  const std::vector<std::string> names = {".dfl-link-3", std::string(kTemporaryLinkStart), TemporaryLinkName(1) + "x",
                                          TemporaryLinkName(2)};
  Write(names[0], "content");
  MakeLink(names[0], names[1]);
  MakeLink(names[0], names[2]);
  Write(names[3], "the only name of its file");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(folder_.Names(), names);
}

TEST_F(LinkingTest, FileThatChangesBeforeItIsLinked_IsLeftAloneWithAMessage) {
  for (const char* name : {"a", "b", "c"}) Write(name, "content");
  BeforeFirstLink([&] { Write("c", "changed content"); });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + Shown("c") + " has changed meanwhile and is left as it is\n");
  EXPECT_TRUE(AreLinked("a", "b"));
  EXPECT_EQ(folder_.Read("c"), "changed content");
}

TEST_F(LinkingTest, FileOfTheSameSizeButANewTime_CountsAsChanged) {
  for (const char* name : {"a", "b", "c"}) Write(name, "content");
  BeforeFirstLink([&] {
    Write("c", "CONTENT");
    const auto time = std::filesystem::last_write_time(folder_.Path("c"));
    std::filesystem::last_write_time(folder_.Path("c"), time + std::chrono::seconds(5));
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
  EXPECT_EQ(errors_, "dfl: " + Shown("a") + " has changed meanwhile and is left as it is\ndfl: " + Shown("b") +
                         " cannot be linked: Interrupted\n");
  EXPECT_EQ(folder_.Read("a"), "changed content");
  EXPECT_TRUE(AreLinked("c", "d"));
  EXPECT_FALSE(AreLinked("a", "c"));
}

TEST_F(LinkingTest, FileThatVanishesOrShrinksAfterTheScan_IsNamedAndTheRestGoesOn) {
  for (const char* name : {"a", "b", "c", "d"}) Write(name, "content");
  AtLine("Calculating", [&] {
    std::filesystem::remove(folder_.Path("a"));
    Write("c", "con");
  });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + Shown("a") + " cannot be read: " + testing::Missing() + "\ndfl: " + Shown("c") +
                         " cannot be read: The file has changed\n");
  EXPECT_TRUE(AreLinked("b", "d"));
}

TEST_F(LinkingTest, FirstOfAPairThatVanishesAfterTheScan_IsNamed) {
  Write("a", "content");
  Write("b", "content");
  AtLine("Calculating", [&] { std::filesystem::remove(folder_.Path("a")); });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_THAT(errors_, HasSubstr("a cannot be read: " + testing::Missing() + "\n"));
  EXPECT_EQ(LinksOf("b"), 1u);
}

}  // namespace
}  // namespace discwright::tools::dfl
