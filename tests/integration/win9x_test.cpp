// Tests of the step that adds Windows 98/98SE/Me Setup.
#include "integration/win9x.h"

#include <cstdint>
#include <limits>

#include "settings/ini_file.h"
#include "tests/integration/step_fixture.h"

namespace discwright::integration {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class AddWin9xTest : public testing::StepFixture {
 protected:
  AddWin9xTest() {
    host.AddFile("D:\\setup\\SETUP.EXE", "setup", true);
    host.AddFile("C:\\Discwright\\files\\inf_files\\win98_template.inf", "[Setup]\r\nTemplate=98\r\n");
    host.AddFile("C:\\Discwright\\files\\inf_files\\winme_template.inf", "[Setup]\r\nTemplate=Me\r\n");
  }

  void Add(bool answers = false) { AddWin9x(context, "D:\\setup", answers); }
  void GiveAnswers() {
    const settings::INIFile ini("C:\\Discwright\\keyfile2.txt");
    ini.SetINIKey("Win9xInfo", "OwnerName", "Ann");
    ini.SetINIKey("Win9xInfo", "OptimizedFor", "Microsoft Windows 98");
  }
};

TEST_F(AddWin9xTest, NeitherCabinet_GoesToWinsetup) {
  Add();
  EXPECT_EQ(OnCd("WINSETUP\\SETUP.EXE"), "setup");
  EXPECT_THAT(captions, ElementsAre("Copying Windows 9x Setup Files"));
  ExpectNoTrouble();
}

TEST_F(AddWin9xTest, CabinetOf98_GoesToWin98) {
  host.AddFile("D:\\setup\\BASE4.CAB", "cabinet");
  Add();
  EXPECT_EQ(OnCd("WIN98\\SETUP.EXE"), "setup");
  EXPECT_EQ(OnCd("WIN98\\BASE4.CAB"), "cabinet");
}

TEST_F(AddWin9xTest, CabinetThatCannotBeOpened_IsNoted) {
  host.AddFile("D:\\setup\\BASE4.CAB", "cabinet");
  host.FailOn("CheckReadable", "base4.cab", host::ErrorClass::kNotReady, "the disc is scratched");
  Add();
  EXPECT_THAT(Notes(), HasSubstr("D:\\setup\\base4.cab: could not be opened, so the setup files are in the folder "
                                 "WINSETUP of the CD and not in WIN98: the disc is scratched"));
}

TEST_F(AddWin9xTest, CabinetOfMe_GoesToWinme) {
  host.AddFile("D:\\setup\\BASE2.CAB", "cabinet");
  Add();
  EXPECT_EQ(OnCd("WINME\\SETUP.EXE"), "setup");
}

TEST_F(AddWin9xTest, BothCabinets_GoToWinme) {
  host.AddFile("D:\\setup\\BASE4.CAB", "98");
  host.AddFile("D:\\setup\\BASE2.CAB", "Me");
  Add();
  EXPECT_EQ(OnCd("WINME\\BASE4.CAB"), "98");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\WIN98"));
}

TEST_F(AddWin9xTest, NamesShownInLowerCase_AreStoredInUpperCase) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("D:\\setup\\base4.cab", "cabinet");
  Add();
  EXPECT_EQ(host.RealName("C:\\Discwright\\vexacd\\WIN98\\base4.cab"), "BASE4.CAB");
}

TEST_F(AddWin9xTest, AnswersNotWanted_LeaveTheSourcesOwn) {
  host.AddFile("D:\\setup\\MSBATCH.INF", "of the source");
  GiveAnswers();
  Add(false);
  EXPECT_EQ(OnCd("WINSETUP\\MSBATCH.INF"), "of the source");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\keyfile.txt"));
}

TEST_F(AddWin9xTest, Answers_AreMadeFromTheMeTemplateAlthough98IsChosen) {
  host.AddFile("D:\\setup\\MSBATCH.INF", "of the source", true);
  GiveAnswers();
  Add(true);
  EXPECT_THAT(OnCd("WINSETUP\\MSBATCH.INF"), HasSubstr("Name=Ann"));
  // FillKeyFile does not copy the name of the product, so the template is that of Windows Me.
  EXPECT_THAT(OnCd("WINSETUP\\MSBATCH.INF"), HasSubstr("Template=Me"));
  ExpectNoTrouble();
}

TEST_F(AddWin9xTest, AnswersOfBothFamilies_ComeToTheKeyFile) {
  GiveAnswers();
  settings::INIFile("C:\\Discwright\\keyfile2.txt").SetINIKey("Win2KInfo", "OwnerName", "Bob");
  Add(true);
  EXPECT_EQ(settings::INIFile("C:\\Discwright\\keyfile.txt").GetINIKey("Win2KInfo", "OwnerName"), "Bob");
}

TEST_F(AddWin9xTest, AnswersOfAnEarlierBuildAndNoneSince_AreWrittenAgain) {
  const settings::INIFile of_earlier("C:\\Discwright\\keyfile.txt");
  of_earlier.SetINIKey("Win9xInfo", "OwnerName", "Ann");
  of_earlier.SetINIKey("Win9xInfo", "OptimizedFor", "Microsoft Windows 98");
  Add(true);
  EXPECT_THAT(OnCd("WINSETUP\\MSBATCH.INF"), HasSubstr("Name=Ann"));
  EXPECT_THAT(OnCd("WINSETUP\\MSBATCH.INF"), HasSubstr("Template=98"));
  ExpectNoTrouble();
}

TEST_F(AddWin9xTest, NoAnswersGivenYet_WritesNoAnswerFileAndIsNoted) {
  Add(true);
  EXPECT_EQ(OnCd("WINSETUP\\MSBATCH.INF"), "<missing>");
  EXPECT_THAT(Notes(), HasSubstr("keyfile.txt: is missing"));
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddWin9xTest, AnswerFileThatCannotBeWritten_IsAFatalError) {
  GiveAnswers();
  host.FailOn("WriteWholeFile", "MSBATCH.INF", host::ErrorClass::kDiskFull, "No space left on device");
  Add(true);
  ExpectFatalError("Windows 98/Me installation");
  EXPECT_THAT(Notes(), HasSubstr("No space left on device"));
}

TEST_F(AddWin9xTest, FolderThatCannotBeMade_IsAFatalError) {
  host.AddFile("C:\\Discwright\\vexacd\\WINSETUP", "a file");
  Add();
  ExpectFatalError("Windows 98/Me installation");
  EXPECT_EQ(Notes(), "C:\\Discwright\\vexacd\\WINSETUP: could not be created: File exists\n");
}

TEST_F(AddWin9xTest, SourceOfTwoGigabytes_IsAFatalError) {
  host.AddFileOfSize("D:\\setup\\HUGE.CAB", std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1);
  Add();
  ExpectFatalError("Windows 98/Me installation");
}

TEST_F(AddWin9xTest, UnreadableCabinetInTheMiddle_IsNotedAndTheStepGoesOn) {
  host.AddFile("D:\\setup\\BASE4.CAB", "cabinet");
  host.FailOn("CopyFileWithProgress", "BASE4.CAB", host::ErrorClass::kNotReady, "scratched");
  Add();
  EXPECT_THAT(Notes(), HasSubstr("scratched"));
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(cancelled, 0);
}

}  // namespace
}  // namespace discwright::integration
