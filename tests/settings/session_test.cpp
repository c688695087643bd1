// Tests of the session settings file.
#include "settings/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "host/native_text.h"
#include "settings/ini_file.h"
#include "settings/session_table.h"
#include "tests/support/build_fixture.h"

namespace discwright::settings {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

const std::string kFile = "C:\\Discwright\\vexacd.ini";
const std::string kKeyFile = "C:\\Discwright\\keyfile2.txt";

const std::string kDefaults =
    "[Main]\r\n"
    "BootDisks      = 1\r\n"
    "Windows2K      = 0\r\n"
    "Windows9x      = 0\r\n"
    "AdvancedTools  = 0\r\n"
    "ISOLocation    = c:\\vexacd.iso\r\n"
    "CleanSession   = 0\r\n"
    "OptimizeISO    = 0\r\n"
    "\r\n"
    "[BootDisks]\r\n"
    "Use_LinkwellPlus  = 0\r\n"
    "AcceptDrivers  = 0\r\n"
    "\r\n"
    "[Win2K_Info]\r\n"
    "SourceDir      = \"\"\r\n"
    "SP_exe         = \"\"\r\n"
    "In_SetupWin    = 0\r\n"
    "In_Unattend    = 0\r\n"
    "DelLangFiles   = 0\r\n"
    "TemplateFile   = \"C:\\Discwright\\files\\inf_files\\win2k_template.inf\"\r\n"
    "OwnerName      = \"VexaUser\"\r\n"
    "Organization   = \"KORVANE LTD.\"\r\n"
    "ComputerName   = \"\"\r\n"
    "Workgroup      = \"KORVANE_LTD\"\r\n"
    "JoinDomain     = \"False\"\r\n"
    "\r\n"
    "[Win9x_Info]\r\n"
    "SourceDir      = \"\"\r\n"
    "In_MSBATCH     = 0\r\n"
    "In_SetupWin    = 0\r\n"
    "OptimizedFor   = \"Microsoft Windows 98\"\r\n"
    "OwnerName      = \"VexaUser\"\r\n"
    "Organization   = \"KORVANE LTD.\"\r\n"
    "ComputerName   = \"\"\r\n"
    "Workgroup      = \"KORVANE_LTD\"\r\n"
    "\r\n"
    "[Locations]\r\n"
    "VexaUtils       = \"0\"\r\n"
    "VexaUtils_Dir   = \"\"\r\n"
    "AddFiles       = \"0\"\r\n"
    "AddFiles_Dir   = \"\"\r\n"
    "\r\n"
    "[AdvTools]\r\n"
    "Add_BlueCon   = 0\r\n"
    "Add_ERDCmdr   = 0\r\n"
    "BlueCon_Dir   = \"\"\r\n"
    "ERDCmdr_Dir   = \"\"\r\n";

// A different value for every control, and the session file with these values.
const std::string kFilled =
    "[Main]\r\n"
    "BootDisks      = 2\r\n"
    "Windows2K      = 1\r\n"
    "Windows9x      = 1\r\n"
    "AdvancedTools  = 1\r\n"
    "ISOLocation    = text 1\r\n"
    "CleanSession   = 1\r\n"
    "OptimizeISO    = 1\r\n"
    "\r\n"
    "[BootDisks]\r\n"
    "Use_LinkwellPlus  = 1\r\n"
    "AcceptDrivers  = 1\r\n"
    "\r\n"
    "[Win2K_Info]\r\n"
    "SourceDir      = \"text 2\"\r\n"
    "SP_exe         = \"text 3\"\r\n"
    "In_SetupWin    = 1\r\n"
    "In_Unattend    = 1\r\n"
    "DelLangFiles   = 1\r\n"
    "TemplateFile   = \"text 4\"\r\n"
    "OwnerName      = \"text 5\"\r\n"
    "Organization   = \"text 6\"\r\n"
    "ComputerName   = \"text 7\"\r\n"
    "Workgroup      = \"text 8\"\r\n"
    "JoinDomain     = \"True\"\r\n"
    "\r\n"
    "[Win9x_Info]\r\n"
    "SourceDir      = \"text 9\"\r\n"
    "In_MSBATCH     = 1\r\n"
    "In_SetupWin    = 1\r\n"
    "OptimizedFor   = \"text 10\"\r\n"
    "OwnerName      = \"text 11\"\r\n"
    "Organization   = \"text 12\"\r\n"
    "ComputerName   = \"text 13\"\r\n"
    "Workgroup      = \"text 14\"\r\n"
    "\r\n"
    "[Locations]\r\n"
    "VexaUtils       = \"1\"\r\n"
    "VexaUtils_Dir   = \"text 15\"\r\n"
    "AddFiles       = \"1\"\r\n"
    "AddFiles_Dir   = \"text 16\"\r\n"
    "\r\n"
    "[AdvTools]\r\n"
    "Add_BlueCon   = 1\r\n"
    "Add_ERDCmdr   = 1\r\n"
    "BlueCon_Dir   = \"text 17\"\r\n"
    "ERDCmdr_Dir   = \"text 18\"\r\n";

class SessionTest : public testing::BuildFixture {
 protected:
  forms::FrmWin2KInfo& win2k = windows.win2k_info;
  forms::FrmWin9xInfo& win9x = windows.win9x_info;

  // The controls are listed here once more, so that a wrong row of the table makes a test fail.
  std::vector<forms::CheckBox*> CheckBoxes() {
    return {&main.ChkGet_Vexadisks,
            &main.ChkGet_Win2k,
            &main.ChkGet_Win9x,
            &main.ChkGet_Advtools,
            &main.ChkCleanSession,
            &main.ChkOptimizeISO,
            &main.ChkGet_Vexanetplus,
            &main.ChkSelectDrivers,
            &main.ChkWin2KInfo_Assis,
            &main.ChkWin2KInfo_Unattend,
            &main.ChkDelTree_Lang,
            &main.ChkWin9xInfo_MSBatch,
            &main.ChkWin9xInfo_Assis,
            &main.ChkVexaUtils,
            &main.ChkAddFiles,
            &main.ChkBCon,
            &main.ChkERDC};
  }
  std::vector<forms::TextBox*> TextBoxes() {
    return {&main.TxtISOLoc,       &main.Txt_i386_Loc, &main.TxtSP_exe,     &win2k.TxtTemplate,  &win2k.TxtOwner,
            &win2k.TxtOrg,         &win2k.TxtPCName,   &win2k.TxtWorkgroup, &main.TxtWin9x_Loc,  &win9x.TxtOSType,
            &win9x.TxtOwner,       &win9x.TxtOrg,      &win9x.TxtPCName,    &win9x.TxtWorkgroup, &main.TxtUtils_Loc,
            &main.TxtAddFiles_Loc, &main.TxtBCon,      &main.TxtERDC};
  }

  void LoadDialogsNow() { win2k.loaded = win9x.loaded = true; }

  void FillAllControls() {
    LoadDialogsNow();
    for (forms::CheckBox* box : CheckBoxes()) box->value = 1;
    main.ChkGet_Vexadisks.value = 2;
    main.ChkSlipstream.value = 1;
    int number = 0;
    for (forms::TextBox* box : TextBoxes()) box->text = "text " + std::to_string(++number);
    win2k.OptJoinWorkgroup.value = false;
    win2k.OptJoinDomain.value = true;
  }

  void Read(const std::string& content) {
    host.AddFile(kFile, content);
    ReadVexaCDINI(context.windows, context.notes, kFile);
  }

  std::string Written() {
    WriteVexaCDINI(context.windows, context.notes);
    return host.Content(kFile);
  }
};

TEST_F(SessionTest, WriteOfAFreshStart_IsTheDefaultsByteForByte) { EXPECT_EQ(Written(), kDefaults); }

TEST_F(SessionTest, WriteOfEveryControl_IsTheFileByteForByte) {
  FillAllControls();
  EXPECT_EQ(Written(), kFilled);
}

TEST_F(SessionTest, Table_Has47LinesAndEachControlOnce) {
  const std::vector<SessionKey> keys = SessionKeys();
  std::set<std::pair<std::string_view, std::string_view>> names;
  std::set<const void*> controls;
  for (const SessionKey& key : keys) {
    names.insert({key.section, key.key});
    if (key.line->check_box != nullptr) controls.insert(&key.line->check_box(windows));
    if (key.line->text_box != nullptr) controls.insert(&key.line->text_box(windows));
  }
  EXPECT_EQ(kSessionLines.size(), 47u);
  EXPECT_THAT(keys, SizeIs(36));
  EXPECT_THAT(names, SizeIs(36));
  EXPECT_THAT(controls, SizeIs(35));
}

TEST_F(SessionTest, ReadOfAFullFile_FillsEveryControl) {
  Read(kFilled);
  for (const forms::CheckBox* box : CheckBoxes()) EXPECT_EQ(box->value, 1) << box->name();
  int number = 0;
  for (const forms::TextBox* box : TextBoxes()) {
    EXPECT_EQ(box->text.get(), "text " + std::to_string(++number)) << box->form().name() << "." << box->name();
  }
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(SessionTest, ReadOfAnEmptyFile_UnticksAndEmptiesEverythingButTheBootDisks) {
  FillAllControls();
  Read("");
  for (const forms::CheckBox* box : CheckBoxes()) {
    EXPECT_EQ(box->value, box == &main.ChkGet_Vexadisks ? 1 : 0) << box->name();
  }
  for (const forms::TextBox* box : TextBoxes()) EXPECT_EQ(box->text.get(), "") << box->name();
}

TEST_F(SessionTest, BootDisks_AreChosenEvenIfTheFileSaysNo) {
  for (const char* state : {"0", "1", "2", "no"}) {
    main.ChkGet_Vexadisks.value = 0;
    Read("[Main]\r\nBootDisks=" + std::string(state) + "\r\n");
    EXPECT_EQ(main.ChkGet_Vexadisks.value, 1) << state;
  }
}

TEST_F(SessionTest, FileOfAnEarlierVersionWithoutAdvTools_UnticksAndEmptiesThem) {
  FillAllControls();
  Read(kFilled.substr(0, kFilled.find("[AdvTools]")));
  EXPECT_EQ(main.ChkBCon.value, 0);
  EXPECT_EQ(main.ChkERDC.value, 0);
  EXPECT_EQ(main.TxtBCon.text.get(), "");
  EXPECT_EQ(main.TxtERDC.text.get(), "");
  EXPECT_EQ(main.ChkAddFiles.value, 1);
}

TEST_F(SessionTest, PathWithBlanksAtItsEnds_IsSavedTrimmedAndReadsBackTrimmed) {
  main.Txt_i386_Loc.text = "  D:\\i386 x ";
  main.TxtISOLoc.text = "  C:\\my disc.iso  ";
  const std::string content = Written();
  EXPECT_THAT(content, HasSubstr("\r\nSourceDir      = \"D:\\i386 x\"\r\n"));
  EXPECT_THAT(content, HasSubstr("\r\nISOLocation    = C:\\my disc.iso\r\n"));
  ReadVexaCDINI(context.windows, context.notes, kFile);
  EXPECT_EQ(main.Txt_i386_Loc.text.get(), "D:\\i386 x");
  EXPECT_EQ(main.TxtISOLoc.text.get(), "C:\\my disc.iso");
}

TEST_F(SessionTest, TextInQuotesAlready_GetsNoSecondPair) {
  main.Txt_i386_Loc.text = " \"D:\\i386\" ";
  EXPECT_THAT(Written(), HasSubstr("\r\nSourceDir      = \"D:\\i386\"\r\n"));
}

TEST_F(SessionTest, SessionSavedWithDomain_ReopensWithWorkgroup) {
  FillAllControls();
  Written();
  ReadVexaCDINI(context.windows, context.notes, kFile);
  EXPECT_TRUE(win2k.OptJoinWorkgroup.value);
  EXPECT_FALSE(win2k.OptJoinDomain.value);
}

TEST_F(SessionTest, NumberEnteredByHandForJoinDomain_ChoosesTheDomain) {
  for (const std::string number : {"1", "\"-1\"", "7 or so"}) {
    win2k.OptJoinWorkgroup.value = true;
    win2k.OptJoinDomain.value = false;
    Read("[Win2K_Info]\r\nJoinDomain = " + number + "\r\n");
    EXPECT_FALSE(win2k.OptJoinWorkgroup.value) << number;
    EXPECT_TRUE(win2k.OptJoinDomain.value) << number;
  }
}

TEST_F(SessionTest, Read_TakesTheChoiceOfTheDomainBeforeItsName) {
  std::vector<std::string> changed;
  LoadDialogsNow();
  ListenToAll(win2k, [&](forms::Control& control, forms::Facet, forms::By) { changed.push_back(control.name()); });
  Read(
      "[Win2K_Info]\r\nComputerName=PC\r\nWorkgroup=G\r\nJoinDomain=1\r\nOwnerName=\"VexaUser\"\r\n"
      "Organization=\"KORVANE LTD.\"\r\n");
  EXPECT_THAT(changed, ElementsAre("TxtPCName", "OptJoinWorkgroup", "OptJoinDomain", "TxtWorkgroup"));
}

TEST_F(SessionTest, SectionInAnyLetterCase_IsRead) {
  Read("[WIN2K_INFO]\r\nownername=Ann\r\n");
  EXPECT_EQ(win2k.TxtOwner.text.get(), "Ann");
}

TEST_F(SessionTest, SlipstreamUnticked_EmptiesAndSavesNoServicePack) {
  main.TxtSP_exe.text = "C:\\SP\\sp4.exe";
  EXPECT_THAT(Written(), HasSubstr("\r\nSP_exe         = \"\"\r\n"));
  EXPECT_EQ(main.TxtSP_exe.text.get(), "");
}

TEST_F(SessionTest, SlipstreamTicked_SavesTheServicePack) {
  main.ChkSlipstream.value = 1;
  main.TxtSP_exe.text = "C:\\SP\\sp4.exe";
  EXPECT_THAT(Written(), HasSubstr("\r\nSP_exe         = \"C:\\SP\\sp4.exe\"\r\n"));
}

TEST_F(SessionTest, ReadWithoutServicePack_UnticksSlipstream) {
  main.ChkSlipstream.value = 1;
  Read("[Win2K_Info]\r\nSP_exe = \"\"\r\n");
  EXPECT_EQ(main.ChkSlipstream.value, 0);
}

TEST_F(SessionTest, ReadWithServicePack_LeavesSlipstreamAsItWas) {
  for (const int state : {0, 1}) {
    main.ChkSlipstream.value = state;
    Read("[Win2K_Info]\r\nSP_exe = \"C:\\sp.exe\"\r\n");
    EXPECT_EQ(main.ChkSlipstream.value, state);
  }
}

TEST_F(SessionTest, CheckBoxValues_AreTheirLeadingDigits) {
  Read("[Main]\r\nOptimizeISO = 1abc\r\nWindows2K = yes\r\nWindows9x = \" 2 \"\r\nAdvancedTools = +1\r\n");
  EXPECT_EQ(main.ChkOptimizeISO.value, 1);
  EXPECT_EQ(main.ChkGet_Win2k.value, 0);
  EXPECT_EQ(main.ChkGet_Win9x.value, 2);
  EXPECT_EQ(main.ChkGet_Advtools.value, 1);
}

TEST_F(SessionTest, ReadOfAnotherFile_TakesThatFile) {
  host.AddFile("D:\\other.ini", "[Main]\r\nISOLocation = E:\\x.iso\r\n");
  ReadVexaCDINI(context.windows, context.notes, "D:\\other.ini");
  EXPECT_EQ(main.TxtISOLoc.text.get(), "E:\\x.iso");
  EXPECT_FALSE(host.Exists(kFile));
}

TEST_F(SessionTest, ChoicesOfAFile_AreThereWhenAnyOfItsKeysCanBeRead) {
  const std::string utf16("\xFF\xFE[\0M\0a\0i\0n\0]\0\r\0\n\0B\0o\0o\0t\0D\0i\0s\0k\0s\0=\0\x31\0", 38);
  for (const std::string& text : {utf16, std::string(), std::string("[Main]\r\n"), std::string("BootDisks=1\r\n")}) {
    host.AddFile("D:\\other.ini", text);
    EXPECT_FALSE(HoldsChoices("D:\\other.ini")) << text;
  }
  host.AddFile("D:\\other.ini", "[AdvTools]\nERDCmdr_Dir=\n");
  EXPECT_TRUE(HoldsChoices("D:\\other.ini"));
  EXPECT_FALSE(HoldsChoices("D:\\missing.ini"));
}

TEST_F(SessionTest, Read_LoadsBothDialogsHiddenBeforeTheFilesValuesReplaceTheirs) {
  host.AddFile("C:\\Discwright\\files\\inf_files\\win2k_template.inf", "[UserData]\r\nFullName=of the template\r\n");
  Read("[Win2K_Info]\r\nOwnerName=of the session\r\nTemplateFile=D:\\gone.txt\r\n");
  EXPECT_TRUE(win2k.loaded);
  EXPECT_TRUE(win9x.loaded);
  EXPECT_FALSE(win2k.visible);
  EXPECT_FALSE(win9x.visible);
  EXPECT_EQ(win2k.TxtOwner.text.get(), "of the session");
  EXPECT_EQ(win2k.TxtTemplate.text.get(), "D:\\gone.txt");
}

TEST_F(SessionTest, Read_RefreshesTheWin9xSectionOfTheWorkingKeyFileOnly) {
  Read(
      "[Win9x_Info]\r\nOwnerName=\"Ann\"\r\nOptimizedFor=\"Microsoft Windows "
      "Me\"\r\n[Win2K_Info]\r\nOwnerName=Bob\r\n");
  EXPECT_EQ(host.Content(kKeyFile),
            "[Win9xInfo]\r\nOwnerName=Ann\r\nOrganization=\r\nOptimizedFor=Microsoft Windows Me\r\nComputerName=\r\n"
            "Workgroup=\r\n");
}

TEST_F(SessionTest, ValueLongerThan99Characters_IsCutAndNoted) {
  Read("[Win9x_Info]\r\nSourceDir = \"" + std::string(100, 'x') + "\"\r\n[Locations]\r\nAddFiles_Dir = \"" +
       std::string(99, 'y') + "\"\r\n");
  EXPECT_EQ(main.TxtWin9x_Loc.text.get(), std::string(99, 'x'));
  EXPECT_EQ(main.TxtAddFiles_Loc.text.get(), std::string(99, 'y'));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kFile);
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("SourceDir"));
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("Win9x_Info"));
}

TEST_F(SessionTest, LineEndsAndNulInAControl_BecomeBlanks) {
  LoadDialogsNow();
  main.TxtUtils_Loc.text = std::string("a\r\n[AdvTools]\0b\n", 16);
  main.TxtISOLoc.text = "c\nd\r\n";
  const std::string content = Written();
  EXPECT_THAT(content, HasSubstr("\r\nVexaUtils_Dir   = \"a  [AdvTools] b\"\r\n"));
  EXPECT_THAT(content, HasSubstr("\r\nISOLocation    = c d\r\n"));
}

TEST_F(SessionTest, TextsInAnyScript_ComeBackAsTheyWere) {
  for (const std::string text : {"D:\\Jürgen €", "D:\\Ελλάδα", "D:\\Россия", "/media/J\xFCrgen", "Ã¤", "ï»¿", "\x80"}) {
    main.Txt_i386_Loc.text = text;
    Written();
    main.Txt_i386_Loc.text = "";
    ReadVexaCDINI(context.windows, context.notes, kFile);
    EXPECT_EQ(main.Txt_i386_Loc.text.get(), text);
  }
}

TEST_F(SessionTest, Umlauts_AreSavedInWindows1252) {
  win9x.TxtOwner.text = "Jürgen";
  EXPECT_THAT(Written(), HasSubstr("OwnerName      = \"J\xFCrgen\"\r\n"));
}

TEST_F(SessionTest, CharactersBeyondWindows1252_AreSavedInMarkedUtf8) {
  win9x.TxtOwner.text = "Ω";
  const std::string content = Written();
  EXPECT_TRUE(content.starts_with("\xEF\xBB\xBF[Main]\r\n"));
  EXPECT_THAT(content, HasSubstr("OwnerName      = \"Ω\"\r\n"));
}

TEST_F(SessionTest, FailedWrite_IsNotedAndLeavesTheOldFile) {
  host.AddFile(kFile, "old");
  host.FailOn("WriteWholeFile", "vexacd.ini", host::ErrorClass::kDiskFull, "No space left on device");
  WriteVexaCDINI(context.windows, context.notes);
  EXPECT_EQ(host.Content(kFile), "old");
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kFile);
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("No space left on device"));
}

TEST_F(SessionTest, Write_ReplacesTheFileInOneCallAndTouchesNoOther) {
  host.AddFile(kFile, "old");
  Written();
  EXPECT_THAT(host.calls, ElementsAre("WriteWholeFile " + kFile));
  EXPECT_THAT(notes.all(), IsEmpty());
  EXPECT_THAT(host.Content(kFile), Not(HasSubstr("old")));
}

// The values of all controls of all windows, as text.
std::vector<std::string> ValuesOf(forms::Windows& windows) {
  std::vector<std::string> values;
  for (const forms::Form* form : windows.All()) {
    for (const forms::Control* control : form->controls()) {
      if (const auto* text = dynamic_cast<const forms::TextBox*>(control)) values.push_back(text->text);
      if (const auto* box = dynamic_cast<const forms::CheckBox*>(control)) values.push_back(std::to_string(box->value));
      if (const auto* option = dynamic_cast<const forms::OptionButton*>(control)) {
        values.emplace_back(option->value ? "chosen" : "not chosen");
      }
    }
  }
  return values;
}

class KeptSession : public SessionTest {
 protected:
  KeptSession() { host.AddFolder("D:\\kept sessions"); }

  host::Status Keep() { return WriteSession(windows, notes, kKept); }

  const std::string kKept = "D:\\kept sessions\\mine.ini";
};

TEST_F(KeptSession, EveryControl_IsInTheFileAndStaysAsItIs) {
  FillAllControls();
  const std::vector<std::string> before = ValuesOf(windows);
  EXPECT_TRUE(Keep().ok());
  EXPECT_EQ(host.Content(kKept), kFilled);
  EXPECT_EQ(ValuesOf(windows), before);
  EXPECT_THAT(host.calls, ElementsAre("WriteWholeFile " + kKept));
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(KeptSession, ServicePackThatIsNotChosen_IsWrittenAsEmptyAndStaysInItsBox) {
  main.TxtSP_exe.text = "C:\\SP\\sp4.exe";
  Keep();
  EXPECT_THAT(host.Content(kKept), HasSubstr("\r\nSP_exe         = \"\"\r\n"));
  EXPECT_EQ(main.TxtSP_exe.text.get(), "C:\\SP\\sp4.exe");
}

TEST_F(KeptSession, DialogsThatWereNotLoaded_AreNotLoaded) {
  Keep();
  EXPECT_FALSE(win2k.loaded);
  EXPECT_FALSE(win9x.loaded);
}

TEST_F(KeptSession, ValueThatReadingCuts_IsNotedWithItsKey) {
  main.Txt_i386_Loc.text = std::string(99, 'x');
  main.TxtUtils_Loc.text = std::string(100, 'x');
  main.TxtISOLoc.text = "  " + std::string(98, 'y') + "\u00FC  ";  // 99 characters
  win9x.TxtOwner.text = std::string(99, 'z') + "\u00FC";
  EXPECT_TRUE(Keep().ok());
  EXPECT_THAT(host.Content(kKept), HasSubstr(std::string(100, 'x')));
  ASSERT_THAT(notes.all(), SizeIs(2));
  EXPECT_EQ(notes.all()[0].place, kKept);
  EXPECT_EQ(notes.all()[0].cause,
            "The value of OwnerName in section Win9x_Info is longer than 99 characters; the rest will be ignored when "
            "the file is read.");
  EXPECT_THAT(notes.all()[1].cause, HasSubstr("VexaUtils_Dir in section Locations"));
}

TEST_F(KeptSession, FailedWrite_IsReturnedAndNotNoted) {
  main.TxtUtils_Loc.text = std::string(100, 'x');
  host.FailOn("WriteWholeFile", "mine.ini", host::ErrorClass::kDiskFull, "No space left on device");
  EXPECT_EQ(Keep().error, host::ErrorClass::kDiskFull);
  EXPECT_THAT(notes.all(), IsEmpty());
}

}  // namespace
}  // namespace discwright::settings
