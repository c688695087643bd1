// Tests of the words for the result of a build, and of the report on the finish page.
#include "wizard/report.h"

#include <string>
#include <vector>

#include "tests/wizard/wizard_fixture.h"

namespace discwright::wizard {
namespace {

using steps::BuildEnd;
using steps::BuildResult;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::WizardFixture;

class ReportTest : public WizardFixture {
 protected:
  void Report(BuildResult result) {
    context.result = std::move(result);
    ShowReport(context);
  }

  std::string Sentence(BuildEnd end) { return ResultSentence({.end = end}, notes); }

  std::string Size(std::int64_t bytes) {
    Report({.end = BuildEnd::kMade, .image = "C:\\cd.iso", .size = bytes, .sha256 = "ab12"});
    const std::string text = main.TxtReport.text;
    const std::size_t begin = text.find("Size:    ") + 9;
    return text.substr(begin, text.find("\r\n", begin) - begin);
  }

  const BuildResult image{.end = BuildEnd::kMade, .image = "C:\\cd.iso", .size = 73'400'320, .sha256 = "ab12"};
};

TEST_F(ReportTest, Notes_AreLinesWithTheirPlaceAndCause) {
  host.shows_slashes = true;
  EXPECT_EQ(WarningLine({"C:\\a\\b.txt", "could not be copied"}), "warning: C:/a/b.txt: could not be copied");
  EXPECT_EQ(RemarkLine({"C:\\a\\b.txt", "replaces another file"}), "remark: C:/a/b.txt: replaces another file");
}

TEST_F(ReportTest, NoteOnACommandLine_KeepsItsSpelling) {
  host.shows_slashes = true;
  EXPECT_EQ(WarningLine({"\"C:\\a\\dfl.exe\" -x", "ended with code 1"}),
            "warning: \"C:\\a\\dfl.exe\" -x: ended with code 1");
}

TEST_F(ReportTest, ResultOfAnImage_CountsWhatWasNoted) {
  EXPECT_EQ(Sentence(BuildEnd::kMade), "The image was made.");
  notes.Remark("C:\\a", "is hidden");
  EXPECT_EQ(Sentence(BuildEnd::kMade), "The image was made, with 1 remark.");
  notes.Remark("C:\\b", "is hidden");
  notes.Add("C:\\c", "could not be copied");
  EXPECT_EQ(Sentence(BuildEnd::kMadeWithNotes), "The image was made, with 1 warning and 2 remarks.");
}

TEST_F(ReportTest, ResultWithoutAnImage_TellsWhetherTheUserCancelled) {
  notes.Add("C:\\c", "could not be copied");
  EXPECT_EQ(Sentence(BuildEnd::kFailed), "The image was not made.");
  EXPECT_EQ(Sentence(BuildEnd::kCancelled), "You have cancelled the build.");
}

TEST_F(ReportTest, EveryResult_HasTheLetterOfItsAccessKey) {
  for (const BuildEnd end : {BuildEnd::kMade, BuildEnd::kMadeWithNotes, BuildEnd::kFailed, BuildEnd::kCancelled}) {
    EXPECT_NE(Sentence(end).find(forms::AccessKey(main.TxtReport)), std::string::npos) << Sentence(end);
  }
}

TEST_F(ReportTest, FinishPageBeforeABuild_HasNoReport) {
  EXPECT_FALSE(main.LblResult.visible);
  EXPECT_FALSE(main.TxtReport.visible);
  forms::Press(main.CmdCancel);
  EXPECT_FALSE(main.LblResult.visible);
  EXPECT_FALSE(main.TxtReport.visible);
}

TEST_F(ReportTest, Image_IsReportedWithItsNotesBelow) {
  host.shows_slashes = true;
  notes.Add("C:\\a", "could not be copied");
  notes.Remark("C:\\b", "is hidden");
  Report(image);
  EXPECT_TRUE(main.LblResult.visible);
  EXPECT_TRUE(main.TxtReport.visible);
  EXPECT_EQ(main.LblResult.caption.get(), "The image was made, with 1 warning and 1 remark.");
  EXPECT_EQ(main.TxtReport.text.get(),
            "Image:   C:/cd.iso\r\n"
            "Size:    73400320 bytes (70.0 MB)\r\n"
            "SHA-256: ab12\r\n"
            "\r\n"
            "warning: C:/a: could not be copied\r\n"
            "remark: C:/b: is hidden\r\n");
}

TEST_F(ReportTest, ImageWithoutNotes_HasNoBlankLine) {
  Report(image);
  EXPECT_EQ(main.TxtReport.text.get(), "Image:   C:\\cd.iso\r\nSize:    73400320 bytes (70.0 MB)\r\nSHA-256: ab12\r\n");
}

TEST_F(ReportTest, Megabytes_AreThoseOfACdAndRounded) {
  EXPECT_EQ(Size(734'003'200), "734003200 bytes (700.0 MB)");
  EXPECT_EQ(Size(734'055'628), "734055628 bytes (700.0 MB)");
  EXPECT_EQ(Size(734'055'629), "734055629 bytes (700.1 MB)");
  EXPECT_EQ(Size(0), "0 bytes (0.0 MB)");
}

TEST_F(ReportTest, Failure_TellsWhyThenTheNotesThenTheEndOfTheLog) {
  notes.Add("C:\\a", "could not be copied");
  Report({.end = BuildEnd::kFailed,
          .image = "C:\\cd.iso",
          .why = "The disk is full.",
          .log = "C:\\Discwright\\log.txt",
          .log_tail = {"one", "two"}});
  EXPECT_EQ(main.LblResult.caption.get(), "The image was not made.");
  EXPECT_EQ(main.TxtReport.text.get(),
            "The disk is full.\r\n\r\n"
            "warning: C:\\a: could not be copied\r\n\r\n"
            "The end of C:\\Discwright\\log.txt:\r\n  one\r\n  two\r\n");
}

TEST_F(ReportTest, FailureWithoutALog_IsItsReason) {
  Report({.end = BuildEnd::kFailed, .image = "C:\\cd.iso", .why = "The disk is full."});
  EXPECT_EQ(main.TxtReport.text.get(), "The disk is full.\r\n");
  EXPECT_THAT(LogLines(context.result), IsEmpty());
}

TEST_F(ReportTest, Cancellation_WarnsAgainstAnUnfinishedImage) {
  notes.Remark("C:\\b", "is hidden");
  Report({.end = BuildEnd::kCancelled, .image = "C:\\cd.iso"});
  EXPECT_EQ(main.LblResult.caption.get(), "You have cancelled the build.");
  EXPECT_EQ(main.TxtReport.text.get(),
            "If there is a file C:\\cd.iso, do not use it: this build did not make it, or did not finish it.\r\n\r\n"
            "remark: C:\\b: is hidden\r\n");
}

TEST_F(ReportTest, Image_IsThreeLines) {
  EXPECT_THAT(ImageLines(image), ElementsAre("Image:   C:\\cd.iso", "Size:    73400320 bytes", "SHA-256: ab12"));
}

}  // namespace
}  // namespace discwright::wizard
