// Tests of the step that adds Windows 2000/XP/2003 Setup.
#include "integration/win2k.h"

#include <cstdint>
#include <limits>

#include "settings/ini_file.h"
#include "tests/integration/step_fixture.h"

namespace discwright::integration {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kServicePack = "E:\\packs\\my pack.exe";

class AddWin2KTest : public testing::StepFixture {
 protected:
  AddWin2KTest() {
    host.AddFile("D:\\I386\\SETUPLDR.BIN", "loader", true);
    host.AddFile("D:\\I386\\TXTSETUP.SIF", "script");
    host.AddFile("D:\\I386\\LANG\\KOR\\FONT.TT_", "font", true);
    host.AddFile("D:\\WIN51", "");
    host.AddFile("D:\\WIN51IP", "tag");
    host.AddFile("D:\\CDROM_IP.5", "2000");
    host.AddFile("D:\\CDROMSP4.TST", "service pack");
    host.AddFile("D:\\README.HTM", "not needed");
    host.AddFile(kServicePack, "MZ installer");
    host.AddFile("C:\\Discwright\\files\\inf_files\\win2k_template.inf", "[Data]\r\nAutoPartition=0\r\n");
  }

  void Add() {
    AddWin2K(
        context,
        {.Source = source, .DelTreeLang = remove_languages, .SP_exe = service_pack, .AddInfo_toUnattend = answers});
  }
  void GiveAnswers() {
    answers = true;
    const settings::INIFile ini("C:\\Discwright\\keyfile2.txt");
    ini.SetINIKey("Win2KInfo", "OwnerName", "Ann");
    ini.SetINIKey("Win2KInfo", "Workgroup", "HOME");
  }

  std::string source = "D:\\I386";
  std::string service_pack;
  bool remove_languages = false;
  bool answers = false;
};

TEST_F(AddWin2KTest, SetupFilesTagFilesAndBootSector_ComeToTheCd) {
  Add();
  EXPECT_EQ(OnCd("I386\\SETUPLDR.BIN"), "loader");
  EXPECT_EQ(OnCd("I386\\LANG\\KOR\\FONT.TT_"), "font");
  EXPECT_EQ(OnCd("WIN51"), "");
  EXPECT_EQ(OnCd("WIN51IP"), "tag");
  EXPECT_EQ(OnCd("CDROM_IP.5"), "2000");
  EXPECT_EQ(OnCd("CDROMSP4.TST"), "service pack");
  EXPECT_EQ(OnCd("README.HTM"), "<missing>");
  EXPECT_EQ(OnCd("boot\\images\\w2ksect.bin"), "sector of I386");
  EXPECT_THAT(captions, ElementsAre("Copying Windows 2000/XP Files"));
  ExpectNoTrouble();
}

TEST_F(AddWin2KTest, NoOptionChosen_StartsNoProgramAndWritesNoAnswers) {
  Add();
  EXPECT_THAT(programs.started, IsEmpty());
  EXPECT_EQ(OnCd("I386\\WINNT.SIF"), "<missing>");
}

TEST_F(AddWin2KTest, BootSectorIsCopiedBeforeTheSetupFiles) {
  Add();
  EXPECT_THAT(host.calls.at(0), HasSubstr("w2ksect.bin"));
}

TEST_F(AddWin2KTest, SourceWithoutTagFiles_AddsNothingToTheRoot) {
  host.AddFile("F:\\plain\\I386\\SETUPLDR.BIN", "loader");
  source = "F:\\plain\\I386";
  Add();
  EXPECT_EQ(OnCd("I386\\SETUPLDR.BIN"), "loader");
  EXPECT_EQ(OnCd("WIN51"), "<missing>");
  ExpectNoTrouble();
}

TEST_F(AddWin2KTest, NamesShownInLowerCase_AreStoredInUpperCase) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("F:\\i386\\setupldr.bin", "loader");
  host.AddFile("F:\\i386\\Mixed.txt", "mixed");
  host.AddFile("F:\\win51ip.sp2", "tag");
  host.AddFile("F:\\cdrom_ip.5", "tag");
  source = "F:\\i386";
  Add();
  EXPECT_EQ(host.RealName("C:\\Discwright\\vexacd\\I386\\setupldr.bin"), "SETUPLDR.BIN");
  EXPECT_EQ(host.RealName("C:\\Discwright\\vexacd\\I386\\mixed.txt"), "Mixed.txt");
  EXPECT_EQ(host.RealName("C:\\Discwright\\vexacd\\win51ip.sp2"), "WIN51IP.SP2");
  EXPECT_EQ(host.RealName("C:\\Discwright\\vexacd\\cdrom_ip.5"), "CDROM_IP.5");
}

TEST_F(AddWin2KTest, ServicePack_GetsTheShortFormOfTheTreeAndIsWaitedFor) {
  host.short_paths["C:\\Discwright\\vexacd"] = "C:\\DISCWR~1\\vexacd";
  service_pack = kServicePack;
  programs.run = [](const std::string&) {
    return testing::FakeRun{{"one", "two"}, [] { testing::FakeHost::Current().AddFile("C:\\ended", ""); }, {}};
  };
  remove_languages = true;
  Add();
  EXPECT_THAT(programs.started, ElementsAre("E:\\packs\\my pack.exe -s:C:\\DISCWR~1\\vexacd"));
  EXPECT_TRUE(host.Exists("C:\\ended"));
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_THAT(captions, ElementsAre("Copying Windows 2000/XP Files", "Slipstreaming Windows 2000/XP Service Pack",
                                    "Removing Extra Languages files"));
  ExpectNoTrouble();
}

TEST_F(AddWin2KTest, ServicePack_ComesAfterTheTagFilesAndBeforeTheAnswers) {
  service_pack = kServicePack;
  GiveAnswers();
  programs.run = [](const std::string&) {
    return testing::FakeRun{{},
                            [] {
                              testing::FakeHost& disk = testing::FakeHost::Current();
                              EXPECT_TRUE(disk.Exists("C:\\Discwright\\vexacd\\CDROM_IP.5"));
                              EXPECT_FALSE(disk.Exists("C:\\Discwright\\vexacd\\I386\\WINNT.SIF"));
                              disk.AddFile("C:\\Discwright\\vexacd\\I386\\WINNT.SIF", "of the service pack");
                            },
                            {}};
  };
  Add();
  EXPECT_THAT(programs.started, SizeIs(1));
  EXPECT_THAT(OnCd("I386\\WINNT.SIF"), HasSubstr("FullName=Ann"));
}

TEST_F(AddWin2KTest, ServicePackThatCannotBeStarted_CancelsTheBuildAndIsNotWaitedFor) {
  service_pack = kServicePack;
  programs.start_status = host::Status::Failure(host::ErrorClass::kOther, "no program");
  Add();
  ASSERT_THAT(user.messages, SizeIs(1));
  EXPECT_EQ(user.messages[0].title, "Critical Error");
  EXPECT_EQ(cancelled, 1);
  EXPECT_THAT(Notes(), HasSubstr("no program"));
}

TEST_F(AddWin2KTest, TreeWithoutShortForm_IsGivenInFull) {
  service_pack = kServicePack;
  Add();
  EXPECT_THAT(programs.started, ElementsAre("E:\\packs\\my pack.exe -s:C:\\Discwright\\vexacd"));
}

TEST_F(AddWin2KTest, ServicePackOnASystemThatIsNoWindows_IsStartedThroughItsCommand) {
  host.wine = "wine ";
  service_pack = kServicePack;
  Add();
  EXPECT_THAT(programs.started, ElementsAre("wine E:\\packs\\my pack.exe -s:C:\\Discwright\\vexacd"));
}

TEST_F(AddWin2KTest, NoCommandForWindowsPrograms_ShowsAMessageAndGoesOn) {
  host.starts_windows_programs = false;
  service_pack = kServicePack;
  remove_languages = true;
  Add();
  ASSERT_THAT(user.messages, SizeIs(1));
  EXPECT_EQ(user.messages[0].title, "Can't Slipstream Service Pack");
  EXPECT_THAT(user.messages[0].text, HasSubstr("wine"));
  EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kExclamation);
  EXPECT_THAT(programs.started, IsEmpty());
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\I386\\LANG"));
  EXPECT_EQ(cancelled, 0);
  EXPECT_THAT(Notes(), HasSubstr(kServicePack));
}

TEST_F(AddWin2KTest, ServicePackThatIsNoWindowsProgram_IsReportedBeforeItIsStartedAndTheStepGoesOn) {
  for (const char* content : {"", "M", "mz", "ZM", "PK\x03\x04 archive", " MZ"}) {
    user.messages.clear();
    host.AddFile(kServicePack, content);
    host.AddFile("C:\\Discwright\\vexacd\\I386\\LANG\\KOR\\FONT.TT_", "font");
    service_pack = kServicePack;
    remove_languages = true;
    Add();
    ASSERT_THAT(user.messages, SizeIs(1)) << content;
    EXPECT_EQ(user.messages[0].title, "Can't Slipstream Service Pack");
    EXPECT_THAT(user.messages[0].text, HasSubstr("my pack.exe is not a Windows program"));
    EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kExclamation);
    EXPECT_THAT(programs.started, IsEmpty());
    EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\I386\\LANG"));
    EXPECT_EQ(cancelled, 0);
    EXPECT_THAT(Notes(), HasSubstr(std::string(kServicePack) + ": was not slipstreamed"));
  }
}

TEST_F(AddWin2KTest, ServicePackInQuotes_IsExaminedToo) {
  service_pack = std::string("\"") + kServicePack + "\"";
  Add();
  EXPECT_THAT(programs.started, SizeIs(1));
  ExpectNoTrouble();
  host.AddFile(kServicePack, "text");
  Add();
  EXPECT_THAT(programs.started, SizeIs(1));
  ASSERT_THAT(user.messages, SizeIs(1));
  EXPECT_THAT(user.messages[0].text, HasSubstr(std::string(": ") + kServicePack + " is not a Windows program"));
}

TEST_F(AddWin2KTest, ServicePackThatCannotBeRead_IsStartedAnyway) {
  service_pack = kServicePack;
  host.FailOn("OpenBinary", "my pack.exe", host::ErrorClass::kAccessDenied, "locked");
  Add();
  EXPECT_THAT(programs.started, SizeIs(1));
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(AddWin2KTest, Windows9xHost_NeverSlipstreamsAndGoesOn) {
  host.platform_id = 1;
  service_pack = kServicePack;
  remove_languages = true;
  Add();
  ASSERT_THAT(user.messages, SizeIs(1));
  EXPECT_EQ(user.messages[0].text, "Can't integrate the Windows Service Pack if running in a Windows 9x environment");
  EXPECT_EQ(user.messages[0].title, "Can't Slipstream Service Pack");
  EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kExclamation);
  EXPECT_THAT(programs.started, IsEmpty());
  EXPECT_THAT(captions, ElementsAre("Copying Windows 2000/XP Files", "Removing Extra Languages files"));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\I386\\LANG"));
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddWin2KTest, ServicePackThatIsNotThere_ChangesTheCaptionAndIsOnlyNoted) {
  service_pack = "E:\\packs\\none.exe";
  Add();
  EXPECT_THAT(captions, Contains("Slipstreaming Windows 2000/XP Service Pack"));
  EXPECT_THAT(programs.started, IsEmpty());
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_THAT(Notes(), HasSubstr("none.exe"));
}

TEST_F(AddWin2KTest, ServicePackThatFails_IsNotedAndTheStepGoesOn) {
  service_pack = kServicePack;
  remove_languages = true;
  programs.run = [](const std::string&) { return testing::FakeRun{{"wrong language"}, {}, {1, ""}}; };
  Add();
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_THAT(Notes(), HasSubstr("wrong language"));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\I386\\LANG"));
}

TEST_F(AddWin2KTest, CancelDuringTheServicePack_WaitsForItsEnd) {
  service_pack = kServicePack;
  programs.run = [](const std::string&) {
    return testing::FakeRun{{"1", "2", "3"}, [] { testing::FakeHost::Current().AddFile("C:\\ended", ""); }, {}};
  };
  user.on_do_events = [this] { main.CancelCopy = main.ASyncAppRunning; };
  Add();
  EXPECT_TRUE(host.Exists("C:\\ended"));
}

TEST_F(AddWin2KTest, Answers_GoThroughTheKeyFileIntoWinntSif) {
  GiveAnswers();
  Add();
  EXPECT_THAT(host.Content("C:\\Discwright\\keyfile.txt"), HasSubstr("Ann"));
  EXPECT_THAT(OnCd("I386\\WINNT.SIF"), HasSubstr("FullName=Ann"));
  EXPECT_THAT(OnCd("I386\\WINNT.SIF"), HasSubstr("AutoPartition=0"));
  ExpectNoTrouble();
}

TEST_F(AddWin2KTest, AnswersOfBothFamilies_ComeToTheKeyFile) {
  GiveAnswers();
  settings::INIFile("C:\\Discwright\\keyfile2.txt").SetINIKey("Win9xInfo", "OwnerName", "Bob");
  Add();
  EXPECT_EQ(settings::INIFile("C:\\Discwright\\keyfile.txt").GetINIKey("Win9xInfo", "OwnerName"), "Bob");
}

TEST_F(AddWin2KTest, AnswersOfAnEarlierBuildAndNoneSince_AreWrittenAgain) {
  answers = true;
  settings::INIFile("C:\\Discwright\\keyfile.txt").SetINIKey("Win2KInfo", "OwnerName", "Ann");
  Add();
  EXPECT_THAT(OnCd("I386\\WINNT.SIF"), HasSubstr("FullName=Ann"));
  ExpectNoTrouble();
}

TEST_F(AddWin2KTest, AnswersThatTheSourceHeldReadOnly_AreReplaced) {
  host.AddFile("D:\\I386\\WINNT.SIF", "[Data]\r\nOfTheSource=1\r\n", true);
  GiveAnswers();
  Add();
  EXPECT_THAT(OnCd("I386\\WINNT.SIF"), Not(HasSubstr("OfTheSource")));
  EXPECT_EQ(host.Content("D:\\I386\\WINNT.SIF"), "[Data]\r\nOfTheSource=1\r\n");
  ExpectNoTrouble();
}

TEST_F(AddWin2KTest, AnswersNotWanted_LeaveTheSourcesOwn) {
  host.AddFile("D:\\I386\\WINNT.SIF", "of the source");
  GiveAnswers();
  answers = false;
  Add();
  EXPECT_EQ(OnCd("I386\\WINNT.SIF"), "of the source");
}

TEST_F(AddWin2KTest, NoAnswersGivenYet_WritesNoAnswerFileAndIsNoted) {
  answers = true;
  Add();
  EXPECT_FALSE(host.Exists("C:\\Discwright\\keyfile.txt"));
  EXPECT_EQ(OnCd("I386\\WINNT.SIF"), "<missing>");
  EXPECT_THAT(Notes(), HasSubstr("keyfile.txt: is missing"));
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddWin2KTest, ScriptInUtf16_IsNotedAndTheStepGoesOnWithoutAnAnswerFile) {
  host.AddFile("D:\\I386\\WINNT.SIF", "of the source");
  host.AddFile("D:\\I386\\LANG\\FONT", "font");
  GiveAnswers();
  host.AddFile("E:\\mine.txt", "\xFF\xFE[");
  settings::INIFile("C:\\Discwright\\keyfile2.txt").SetINIKey("Win2KInfo", "TemplateFile", "E:\\mine.txt");
  remove_languages = true;
  Add();
  EXPECT_EQ(OnCd("I386\\WINNT.SIF"), "<missing>");
  EXPECT_EQ(OnCd("I386\\LANG\\FONT"), "<missing>");
  EXPECT_THAT(Notes(), HasSubstr("E:\\mine.txt: is Unicode text"));
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddWin2KTest, AnswerFileThatCannotBeWritten_IsAFatalErrorAndEndsTheStep) {
  GiveAnswers();
  remove_languages = true;
  host.FailOn("WriteWholeFile", "WINNT.SIF", host::ErrorClass::kDiskFull, "No space left on device");
  Add();
  ExpectFatalError("Windows 2000/XP installation");
  EXPECT_THAT(Notes(), HasSubstr("No space left on device"));
  EXPECT_TRUE(host.Exists("C:\\Discwright\\vexacd\\I386\\LANG"));
}

TEST_F(AddWin2KTest, SourceOfTwoGigabytes_IsAFatalError) {
  host.AddFileOfSize("D:\\I386\\HUGE.CAB", std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1);
  remove_languages = true;
  Add();
  ExpectFatalError("Windows 2000/XP installation");
  EXPECT_EQ(OnCd("WIN51"), "<missing>");
}

TEST_F(AddWin2KTest, UnreadableFileInTheMiddle_IsNotedAndTheStepGoesOn) {
  host.AddFile("D:\\I386\\DRIVER.CAB", "cabinet");
  host.FailOn("CopyFileWithProgress", "DRIVER.CAB", host::ErrorClass::kNotReady, "scratched");
  Add();
  EXPECT_THAT(Notes(), HasSubstr("scratched"));
  EXPECT_EQ(OnCd("WIN51IP"), "tag");
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddWin2KTest, SourceWithoutALoader_IsNoted) {
  host.AddFile("F:\\I386\\TXTSETUP.SIF", "script");
  source = "F:\\I386";
  Add();
  EXPECT_EQ(Notes(), "F:\\I386\\SETUPLDR.BIN: was not copied to the CD: Windows Setup cannot be started from the CD\n");
  EXPECT_EQ(cancelled, 0);
}

TEST_F(AddWin2KTest, MissingBootSector_IsNoted) {
  host.nodes.erase(testing::FakeHost::Key("C:\\Discwright\\files\\bootsect\\w2ksect.bin"));
  Add();
  EXPECT_EQ(Notes(),
            "C:\\Discwright\\files\\bootsect\\w2ksect.bin: is missing: the system that this boot sector starts cannot "
            "be started "
            "from the CD\n");
  EXPECT_EQ(OnCd("I386\\SETUPLDR.BIN"), "loader");
}

TEST_F(AddWin2KTest, TagFileThatCannotBeCopied_EndsOnlyTheTagFiles) {
  host.FailOn("CopyFileWithProgress", "D:\\I386\\..\\WIN51 ", host::ErrorClass::kNotReady, "scratched");
  remove_languages = true;
  Add();
  EXPECT_EQ(OnCd("WIN51IP"), "<missing>");
  EXPECT_EQ(OnCd("CDROM_IP.5"), "2000");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\I386\\LANG"));
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(AddWin2KTest, ExtraLanguages_AreRemovedWithTheirReadOnlyFiles) {
  remove_languages = true;
  Add();
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\I386\\LANG"));
  EXPECT_TRUE(host.Exists("D:\\I386\\LANG\\KOR\\FONT.TT_"));
  EXPECT_THAT(repainted, Contains("Removing Extra Languages files"));
  ExpectNoTrouble();
}

TEST_F(AddWin2KTest, ExtraLanguagesThatAreNotThere_AreNoTrouble) {
  host.AddFile("F:\\I386\\SETUPLDR.BIN", "loader");
  source = "F:\\I386";
  remove_languages = true;
  Add();
  ExpectNoTrouble();
}

}  // namespace
}  // namespace discwright::integration
