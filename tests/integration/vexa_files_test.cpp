// Tests of the step that adds the utilities and the additional files.
#include "integration/vexa_files.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "tests/integration/step_fixture.h"

namespace discwright::integration {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int64_t kTooManyBytes = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;

class AddVexaFilesTest : public testing::StepFixture {
 protected:
  AddVexaFilesTest() {
    host.AddFile("C:\\Discwright\\vexacd\\readme.txt", "template");
    host.AddFile("E:\\utils\\tool.exe", "tool");
    host.AddFile("E:\\utils\\docs\\tool.txt", "manual");
    host.AddFile("E:\\more\\readme.txt", "mine");
    host.AddFile("E:\\more\\music\\song.mid", "song");
  }

  void Add(bool utilities, bool additional_files) {
    AddVexa_Files(
        context,
        {.AddUtils = utilities, .AddAddFiles = additional_files, .Utils_Loc = "E:\\utils", .AddFiles_Loc = "E:\\more"});
  }
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
  EXPECT_EQ(OnCd("vexa\\tool.exe"), "tool");
  EXPECT_EQ(OnCd("vexa\\docs\\tool.txt"), "manual");
  EXPECT_EQ(OnCd("readme.txt"), "template");
  EXPECT_THAT(captions, ElementsAre("Copying Vexa Utilities"));
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddVexaFilesTest, UtilitiesFolderIsThereAlready_IsNotMadeAgain) {
  host.AddFile("C:\\Discwright\\vexacd\\vexa\\menu.txt", "menu");
  host.FailOn("MakeFolders", "vexacd\\vexa", host::ErrorClass::kExists, "injected", 1);
  Add(true, false);
  EXPECT_EQ(OnCd("vexa\\menu.txt"), "menu");
  EXPECT_EQ(OnCd("vexa\\tool.exe"), "tool");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(AddVexaFilesTest, AdditionalFiles_JoinTheRootOfTheCd) {
  Add(false, true);
  EXPECT_EQ(OnCd("music\\song.mid"), "song");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\vexa"));
  EXPECT_THAT(captions, ElementsAre("Copying Additional Files"));
}

TEST_F(AddVexaFilesTest, AdditionalFileNamedLikeOneOfTheCd_OverwritesIt) {
  Add(false, true);
  EXPECT_EQ(OnCd("readme.txt"), "mine");
}

TEST_F(AddVexaFilesTest, AdditionalFilesThatReplaceOthers_AreRemarkedOnAndAreNoFailure) {
  host.AddFile("C:\\Discwright\\vexacd\\I386\\SETUPLDR.BIN", "of Windows Setup");
  host.AddFile("E:\\more\\i386\\setupldr.bin", "mine");
  host.AddFile("E:\\more\\i386\\new.txt", "new");
  host.AddFile("E:\\more\\vexa\\tool.exe", "mine");
  Add(true, true);
  std::string remarks;
  for (const util::Note& remark : notes.remarks()) remarks += remark.place + ": " + remark.cause + "\n";
  const std::string replaces = ": replaces the file of the same name that is already on the CD\n";
  EXPECT_EQ(remarks, "E:\\more\\i386\\setupldr.bin" + replaces + "E:\\more\\readme.txt" + replaces +
                         "E:\\more\\vexa\\tool.exe" + replaces);
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AddVexaFilesTest, FileAndFolderOfTheSameName_AreNotRemarkedOn) {
  host.AddFile("C:\\Discwright\\vexacd\\music", "a file");
  host.AddFolder("C:\\Discwright\\vexacd\\readme.txt folder");
  host.AddFile("E:\\more\\readme.txt folder", "a file");
  Add(false, true);
  ASSERT_EQ(notes.remarks().size(), 1U);
  EXPECT_EQ(notes.remarks()[0].place, "E:\\more\\readme.txt");
}

TEST_F(AddVexaFilesTest, ManyReplacedFiles_AreCountedInOneLastRemark) {
  for (int i = 0; i < 30; ++i) {
    host.AddFile("C:\\Discwright\\vexacd\\I386\\" + std::to_string(i), "old");
    host.AddFile("E:\\more\\I386\\" + std::to_string(i), "new");
  }
  Add(false, true);
  ASSERT_EQ(notes.remarks().size(), 21U);
  EXPECT_EQ(notes.remarks()[20].place, "E:\\more");
  EXPECT_EQ(notes.remarks()[20].cause, "11 more files in this folder replace files of the same name on the CD");
}

// A link that leads back to its own folder would be followed for ever.
TEST_F(AddVexaFilesTest, LinkThatLoops_IsNotFollowedInSearchOfReplacedFiles) {
  host.AddFolder("C:\\Discwright\\vexacd\\loop");
  host.AddFile("C:\\Discwright\\vexacd\\loop\\readme.txt", "old");
  host.AddLink("E:\\more\\loop", "E:\\more", true);
  Add(false, true);
  ASSERT_EQ(notes.remarks().size(), 1U);
  EXPECT_EQ(notes.remarks()[0].place, "E:\\more\\readme.txt");
}

TEST_F(AddVexaFilesTest, BothChosen_UtilitiesGoFirst) {
  Add(true, true);
  EXPECT_THAT(captions, ElementsAre("Copying Vexa Utilities", "Copying Additional Files"));
  EXPECT_EQ(OnCd("vexa\\tool.exe"), "tool");
  EXPECT_EQ(OnCd("music\\song.mid"), "song");
}

TEST_F(AddVexaFilesTest, UtilitiesCannotBeCopied_AdditionalFilesStillAre) {
  host.FailOn("CopyFileWithProgress", "utils", host::ErrorClass::kAccessDenied);
  Add(true, true);
  EXPECT_EQ(OnCd("vexa\\tool.exe"), "<missing>");
  EXPECT_EQ(OnCd("music\\song.mid"), "song");
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(cancelled, 0);
  EXPECT_FALSE(notes.all().empty());
}

TEST_F(AddVexaFilesTest, UtilitiesFolderCannotBeMade_IsAFatalErrorWithItsCauseNoted) {
  host.FailOn("MakeFolders", "vexacd\\vexa", host::ErrorClass::kDiskFull, "No space left on device");
  Add(true, true);
  ExpectFatalError("Vexa Utilities");
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\Discwright\\vexacd\\vexa");
  EXPECT_EQ(notes.all()[0].cause, "could not be created: No space left on device");
  EXPECT_EQ(OnCd("music\\song.mid"), "<missing>");
}

TEST_F(AddVexaFilesTest, FileInPlaceOfTheUtilitiesFolder_IsAFatalError) {
  host.AddFile("C:\\Discwright\\vexacd\\vexa", "a file");
  Add(true, false);
  ExpectFatalError("Vexa Utilities");
}

TEST_F(AddVexaFilesTest, UtilitiesOfTwoGigabytes_AreAFatalErrorAndEndTheStep) {
  host.AddFileOfSize("E:\\utils\\huge.bin", kTooManyBytes);
  Add(true, true);
  ExpectFatalError("Vexa Utilities");
  EXPECT_EQ(OnCd("music\\song.mid"), "<missing>");
  EXPECT_THAT(captions, ElementsAre("Copying Vexa Utilities"));
}

// The text names the utilities although the additional files failed.
TEST_F(AddVexaFilesTest, AdditionalFilesOfTwoGigabytes_AreTheSameFatalError) {
  host.AddFileOfSize("E:\\more\\huge.bin", kTooManyBytes);
  Add(true, true);
  ExpectFatalError("Vexa Utilities");
  EXPECT_EQ(OnCd("vexa\\tool.exe"), "tool");
}

}  // namespace
}  // namespace discwright::integration
