// Tests of the step that adds the utilities and the additional files.
#include "integration/vexa_files.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/build_fixture.h"

namespace discwright::integration {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kTree = "C:\\Discwright\\vexacd";
constexpr std::int64_t kTooManyBytes = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;

class AddVexaFilesTest : public testing::BuildFixture {
 protected:
  AddVexaFilesTest() {
    host.AddFile("C:\\Discwright\\vexacd\\readme.txt", "template");
    host.AddFile("E:\\utils\\tool.exe", "tool");
    host.AddFile("E:\\utils\\docs\\tool.txt", "manual");
    host.AddFile("E:\\more\\readme.txt", "mine");
    host.AddFile("E:\\more\\music\\song.mid", "song");
    main.LblSub_Step.Subscribe([this](forms::Control&, forms::Change) {
      const std::string& caption = main.LblSub_Step.caption;
      if (captions.empty() || captions.back() != caption) captions.push_back(caption);
    });
  }

  void Add(bool utilities, bool additional_files) {
    AddVexa_Files(context, utilities, additional_files, "E:\\utils", "E:\\more");
  }

  std::vector<std::string> StepCaptions() const {
    std::vector<std::string> steps;
    std::copy_if(captions.begin(), captions.end(), std::back_inserter(steps), [](const std::string& caption) {
      return caption.ends_with("Utilities") || caption.ends_with("Files");
    });
    return steps;
  }

  void ExpectFatalError() {
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.messages[0].text, "A fatal Error occured while integrating the Vexa Utilities, operation halted");
    EXPECT_EQ(user.messages[0].title, "Fatal Error");
    EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kCritical);
    EXPECT_EQ(cancelled, 1);
  }

  std::string InTree(const std::string& path) const { return host.Content(kTree + ("\\" + path)); }

  std::vector<std::string> captions;
};

TEST_F(AddVexaFilesTest, NothingChosen_DoesNothingAndChangesNoCaption) {
  main.LblSub_Step.caption = "before";
  const std::vector<std::string> files = host.Files();
  Add(false, false);
  EXPECT_EQ(host.Files(), files);
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_EQ(main.LblSub_Step.caption.get(), "before");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(AddVexaFilesTest, Utilities_GoIntoTheirOwnFolder) {
  Add(true, false);
  EXPECT_EQ(InTree("vexa\\tool.exe"), "tool");
  EXPECT_EQ(InTree("vexa\\docs\\tool.txt"), "manual");
  EXPECT_EQ(InTree("readme.txt"), "template");
  EXPECT_THAT(StepCaptions(), ElementsAre("Copying Vexa Utilities"));
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddVexaFilesTest, UtilitiesFolderIsThereAlready_IsNotMadeAgain) {
  host.AddFile("C:\\Discwright\\vexacd\\vexa\\menu.txt", "menu");
  host.FailOn("MakeFolders", "vexacd\\vexa", host::ErrorClass::kExists, "injected", 1);
  Add(true, false);
  EXPECT_EQ(InTree("vexa\\menu.txt"), "menu");
  EXPECT_EQ(InTree("vexa\\tool.exe"), "tool");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(AddVexaFilesTest, AdditionalFiles_JoinTheRootOfTheCd) {
  Add(false, true);
  EXPECT_EQ(InTree("music\\song.mid"), "song");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\vexa"));
  EXPECT_THAT(StepCaptions(), ElementsAre("Copying Additional Files"));
}

TEST_F(AddVexaFilesTest, AdditionalFileNamedLikeOneOfTheCd_IsLeftToTheCopyWhichOverwrites) {
  Add(false, true);
  EXPECT_EQ(InTree("readme.txt"), "mine");
}

TEST_F(AddVexaFilesTest, BothChosen_UtilitiesGoFirst) {
  Add(true, true);
  EXPECT_THAT(StepCaptions(), ElementsAre("Copying Vexa Utilities", "Copying Additional Files"));
  EXPECT_EQ(InTree("vexa\\tool.exe"), "tool");
  EXPECT_EQ(InTree("music\\song.mid"), "song");
}

TEST_F(AddVexaFilesTest, UtilitiesCannotBeCopied_AdditionalFilesAreCopiedAllTheSame) {
  host.FailOn("CopyFileWithProgress", "utils", host::ErrorClass::kAccessDenied);
  Add(true, true);
  EXPECT_EQ(InTree("vexa\\tool.exe"), "<missing>");
  EXPECT_EQ(InTree("music\\song.mid"), "song");
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(cancelled, 0);
  EXPECT_FALSE(notes.all().empty());
}

TEST_F(AddVexaFilesTest, UtilitiesFolderCannotBeMade_IsAFatalErrorWithItsCauseNoted) {
  host.FailOn("MakeFolders", "vexacd\\vexa", host::ErrorClass::kDiskFull, "No space left on device");
  Add(true, true);
  ExpectFatalError();
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\Discwright\\vexacd\\vexa");
  EXPECT_THAT(notes.all()[0].cause, ::testing::HasSubstr("No space left on device"));
  EXPECT_EQ(InTree("music\\song.mid"), "<missing>");
}

TEST_F(AddVexaFilesTest, FileInPlaceOfTheUtilitiesFolder_IsAFatalError) {
  host.AddFile("C:\\Discwright\\vexacd\\vexa", "a file");
  Add(true, false);
  ExpectFatalError();
}

TEST_F(AddVexaFilesTest, UtilitiesOfTwoGigabytes_AreAFatalErrorAndEndTheStep) {
  host.AddFileOfSize("E:\\utils\\huge.bin", kTooManyBytes);
  Add(true, true);
  ExpectFatalError();
  EXPECT_EQ(InTree("music\\song.mid"), "<missing>");
  EXPECT_THAT(StepCaptions(), ElementsAre("Copying Vexa Utilities"));
}

// The text names the utilities although the additional files failed.
TEST_F(AddVexaFilesTest, AdditionalFilesOfTwoGigabytes_AreTheSameFatalError) {
  host.AddFileOfSize("E:\\more\\huge.bin", kTooManyBytes);
  Add(true, true);
  ExpectFatalError();
  EXPECT_EQ(InTree("vexa\\tool.exe"), "tool");
}

}  // namespace
}  // namespace discwright::integration
