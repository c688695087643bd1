// Tests of the result of a build, for every way in which a build can end.
#include "pipeline/build_result.h"

#include "tests/pipeline/pipeline_fixture.h"

namespace discwright::pipeline {
namespace {

using steps::BuildEnd;
using steps::BuildResult;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kImage = "C:\\out\\Rescue.iso";
constexpr const char* kDigest = "6105d6cc76af400325e94d588ce511be5bfdbb73b437dc51eca43917d7a43e3d";  // of "image"
constexpr const char* kLog = "C:\\Discwright\\mkisofs.log";

class BuildResults : public discwright::testing::PipelineFixture {
 protected:
  BuildResults() { host.shows_slashes = true; }

  // The result after a mastering with this end, with an image at its path.
  BuildResult AfterMastering(const host::ProcessEnd& end) {
    host.AddFile(kImage, "image");
    context.mastering_end = end;
    context.image_was_written = end.Succeeded();
    return ResultOf(context);
  }
  // The result of a failed mastering with this log.
  std::vector<std::string> LogTailOf(const std::string& log) {
    host.AddFile(kLog, log);
    return AfterMastering({1, ""}).log_tail;
  }
  // The user cancels in the call of DoEvents that has this number, counted from 1.
  void CancelAtEvents(int number) {
    user.on_do_events = [this, number] {
      if (user.do_events_calls != number) return;
      context.cancelled_by_user = true;
      context.CancelApp();
    };
  }
};

TEST_F(BuildResults, Made_HasImageSizeAndDigest) {
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kMade);
  EXPECT_EQ(result.image, kImage);
  EXPECT_EQ(result.size, 5);
  EXPECT_EQ(result.sha256, kDigest);
  EXPECT_EQ(result.why, "");
  EXPECT_EQ(result.log, "");
  EXPECT_THAT(result.log_tail, IsEmpty());
}

TEST_F(BuildResults, MadeWithNotes_IsADifferentEnd) {
  host.AddFile("D:\\tools\\good.txt", "good");
  host.AddFile("D:\\tools\\bad.txt", "bad");
  host.FailOn("CopyFileWithProgress", "bad.txt", host::ErrorClass::kNotReady);
  main.ChkVexaUtils.value = 1;
  main.TxtUtils_Loc.text = "D:\\tools";
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kMadeWithNotes);
  EXPECT_EQ(result.size, 5);
  EXPECT_EQ(result.sha256, kDigest);
  EXPECT_EQ(result.why, "");
}

TEST_F(BuildResults, QuotesAndBlanksAroundThePlace_AreNoPartOfIt) {
  main.TxtISOLoc.text = std::string("  \"") + kImage + "\" ";
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kMade);
  EXPECT_EQ(result.image, kImage);
  EXPECT_EQ(result.size, 5);
}

TEST_F(BuildResults, DigestNotWanted_IsNotMade) {
  context.wants_digest = false;
  host.FailOn("Sha256OfFile", "", host::ErrorClass::kNotReady);
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kMade);
  EXPECT_EQ(result.sha256, "");
  EXPECT_EQ(result.size, 5);
}

TEST_F(BuildResults, HaltedByAStep_HasTheTextOfItsMessageBox) {
  failing_profile = "vexasoftware";
  host.AddFile(kLog, "of an earlier build\r\n");
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kFailed);
  EXPECT_EQ(result.image, kImage);
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(result.why, user.messages[0].text);
  EXPECT_THAT(result.why, HasSubstr("The creation the Boot image \"Vexa Rescue Software\" failed, operation halted"));
  EXPECT_EQ(result.log, "");
  EXPECT_THAT(result.log_tail, IsEmpty());
  EXPECT_EQ(result.size, 0);
  EXPECT_EQ(result.sha256, "");
}

TEST_F(BuildResults, HaltedTwice_HasTheFirstReason) {
  context.Halt({"the first reason", "Fatal Error"});
  context.Halt({"what followed from it", "Fatal Error"});
  const BuildResult result = ResultOf(context);
  EXPECT_EQ(result.end, BuildEnd::kFailed);
  EXPECT_EQ(result.why, "the first reason");
  EXPECT_EQ(user.messages.size(), 2U);
}

// If the user cancels before a step halts the build, the build counts as cancelled. CancelByUser of the wizard
// handles the opposite order.
TEST_F(BuildResults, CancelledAndThenHalted_IsCancelled) {
  context.cancelled_by_user = true;
  context.Halt({"the reason", "Fatal Error"});
  EXPECT_EQ(ResultOf(context).end, BuildEnd::kCancelled);
}

TEST_F(BuildResults, MasteringWithoutAnImage_HasTheTextOfTheFinishPage) {
  mastering_fails = true;
  mastering_output = {"first words\nlast words\n"};
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kFailed);
  EXPECT_EQ(result.why, "Operation Aborted: Couldn't access destination ISO File");
  EXPECT_EQ(result.log, kLog);
  EXPECT_THAT(result.log_tail, ElementsAre("MkISOFS.EXE Log File", "first words", "last words",
                                           "The mastering ended with exit code 2."));
  EXPECT_EQ(result.size, 0);
}

TEST_F(BuildResults, MasteringThatSaysNothing_HasNotMadeTheOlderImageThere) {
  host.AddFile(kImage, "an older image");
  mastering_output = {"a shell that could not read the script\n"};
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kFailed);
  EXPECT_THAT(result.why, HasSubstr("The mastering did not say that the image is complete. Do not use the file at"));
}

TEST_F(BuildResults, LogOfAnySize_IsReadAtItsEndOnly) {
  std::string log;
  while (log.size() < 20'000'000) log += "a line of a program that has very much to say\r\n";
  EXPECT_THAT(LogTailOf(log + "the last words\r\n"), ::testing::Contains("the last words"));
}

TEST_F(BuildResults, DiskThatWasFull_HasTheTextOfTheFinishPage) {
  mastering_output = {"mkisofs: No space left on device\n"};
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kFailed);
  EXPECT_EQ(result.why, "Operation Aborted: Not enough free space to complete the ISO file !!!");
}

TEST_F(BuildResults, FailedMasteringWithAnOlderImageThere_WarnsOfThatFile) {
  host.AddFile(kImage, "an older image");
  mastering_fails = true;
  mastering_output = {"no luck today\n"};
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kFailed);
  EXPECT_EQ(result.why,
            "The mastering ended with exit code 2. Do not use the file at C:/out/Rescue.iso: this build did not make "
            "it, or did not finish it.");
  EXPECT_THAT(result.log_tail, ::testing::Contains("no luck today"));
  EXPECT_EQ(result.sha256, "");
  EXPECT_EQ(AfterMastering({0, "SIGKILL"}).why,
            "The mastering was killed by SIGKILL. Do not use the file at C:/out/Rescue.iso: this build did not make "
            "it, or did not finish it.");
}

TEST_F(BuildResults, ImageThatCannotBeReadBack_IsAFailure) {
  host.FailOn("Sha256OfFile", "Rescue.iso", host::ErrorClass::kNotReady, "Input/output error");
  const BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, BuildEnd::kFailed);
  EXPECT_EQ(result.why, "C:/out/Rescue.iso: the image cannot be read back: Input/output error");
  EXPECT_EQ(result.sha256, "");
  EXPECT_EQ(result.log, "");
}

TEST_F(BuildResults, ImageThatNoLongerExists_IsAFailure) {
  for (const bool wants_digest : {false, true}) {
    context.wants_digest = wants_digest;
    context.image_was_written = true;
    const BuildResult result = ResultOf(context);
    EXPECT_EQ(result.end, BuildEnd::kFailed);
    EXPECT_EQ(result.why, std::string("C:/out/Rescue.iso: the image cannot be read back: ") +
                              (wants_digest ? "No such file or directory" : "the file no longer exists"));
  }
}

TEST_F(BuildResults, CancelledByTheUserBeforeTheEnd_IsCancelled) {
  context.cancelled_by_user = true;
  context.CancelApp();
  const BuildResult result = AfterMastering({1, ""});
  EXPECT_EQ(result.end, BuildEnd::kCancelled);
  EXPECT_EQ(result.why, "");
  EXPECT_EQ(result.sha256, "");
}

TEST_F(BuildResults, CancelledLast_IsCancelled) {
  CancelAtEvents(1);
  const BuildResult result = AfterMastering({});
  EXPECT_EQ(result.end, BuildEnd::kCancelled);
  EXPECT_EQ(result.sha256, "");
}

TEST_F(BuildResults, CancelledDuringTheDigest_IsCancelledAndNoFailure) {
  CancelAtEvents(2);
  const BuildResult result = AfterMastering({});
  EXPECT_EQ(result.end, BuildEnd::kCancelled);
  EXPECT_EQ(result.sha256, "");
  EXPECT_EQ(result.why, "");
  EXPECT_EQ(result.size, 0);
}

TEST_F(BuildResults, EventsDuringTheDigest_AreHandled) {
  AfterMastering({});
  EXPECT_THAT(user.waited, ElementsAre(0, 0));
}

TEST_F(BuildResults, LongLog_IsCutToItsLastTwentyLines) {
  std::string log;
  std::vector<std::string> expected;
  for (int line = 1; line <= 25; ++line) {
    log += "line " + std::to_string(line) + "\r\n";
    if (line > 5) expected.push_back("line " + std::to_string(line));
  }
  EXPECT_EQ(LogTailOf(log), expected);
}

TEST_F(BuildResults, LogOfTwentyLines_IsComplete) {
  std::string log;
  for (int line = 0; line < 20; ++line) log += "line\n";
  EXPECT_EQ(LogTailOf(log).size(), 20U);
  EXPECT_EQ(LogTailOf("only one").size(), 1U);
}

TEST_F(BuildResults, BlankLinesAndLineEnds_AreNoLinesOfTheLog) {
  EXPECT_THAT(LogTailOf("\r\none\r\n\r\n\n two \nthree\rfour\r\n\r\nlast"),
              ElementsAre("one", " two ", "three\rfour", "last"));
  EXPECT_THAT(LogTailOf(""), IsEmpty());
}

TEST_F(BuildResults, MissingLog_IsNotNamed) {
  const BuildResult result = AfterMastering({1, ""});
  EXPECT_EQ(result.end, BuildEnd::kFailed);
  EXPECT_EQ(result.log, "");
  EXPECT_THAT(result.log_tail, IsEmpty());
  EXPECT_THAT(result.why, HasSubstr("ended with exit code 1"));
}

TEST_F(BuildResults, FailureWithNotes_StaysAFailure) {
  notes.Add("D:\\tools", "could not be copied");
  EXPECT_EQ(AfterMastering({1, ""}).end, BuildEnd::kFailed);
  EXPECT_EQ(AfterMastering({}).end, BuildEnd::kMadeWithNotes);
}

}  // namespace
}  // namespace discwright::pipeline
