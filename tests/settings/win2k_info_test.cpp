// Tests of the Windows 2000/XP/2003 installation info dialog's fields.
#include "settings/win2k_info.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/user_actions.h"
#include "settings/ini_file.h"
#include "tests/support/fake_host.h"
#include "tests/support/fake_user.h"
#include "util/notes.h"

namespace discwright::settings {
namespace {

const std::string kTemplate = "C:\\Discwright\\files\\inf_files\\win2k_template.inf";
const std::string kUserData = "[UserData]\r\nFullName=\"Ann Lee\"\r\nOrgName=\"Acme\"\r\nComputerName=PC\r\n";

class Win2KInfoTest : public ::testing::Test {
 protected:
  testing::FakeHost host;
  testing::FakeUser user;
  util::Notes notes;
  forms::FrmWin2KInfo dialog;

  void ExpectChoice(bool domain, const std::string& name) {
    EXPECT_EQ(dialog.OptJoinDomain.value, domain);
    EXPECT_EQ(dialog.OptJoinWorkgroup.value, !domain);
    EXPECT_EQ(dialog.TxtWorkgroup.text.get(), name);
  }

  void FillFromScript(const std::string& text) {
    host.AddFile("C:\\script.txt", text);
    FillSetupDataFromUnattend(dialog, notes, "C:\\script.txt");
  }
};

TEST_F(Win2KInfoTest, ScriptOrKeyFileThatCannotBeRead_IsNotedAndTheFieldsKeepTheirTexts) {
  host.AddFile("C:\\script.txt", kUserData);
  host.AddFile("C:\\keys.txt", "[Win2KInfo]\r\nOwnerName=Ann\r\nJoinDomain=True\r\n");
  dialog.TxtOwner.text = "before";
  for (const char* call : {"CheckReadable", "ReadWholeFile"}) {
    notes = {};
    host.FailOn(call, "", host::ErrorClass::kNotReady, "the disk is gone", 1);
    FillSetupDataFromUnattend(dialog, notes, "C:\\script.txt");
    host.FailOn(call, "", host::ErrorClass::kNotReady, "the disk is gone", 1);
    FillSetupDataFromKeyFile(dialog, notes, "C:\\keys.txt");
    ASSERT_EQ(notes.all().size(), 2U) << call;
    EXPECT_EQ(notes.all()[0].place, "C:\\script.txt");
    EXPECT_EQ(notes.all()[1].place, "C:\\keys.txt");
    EXPECT_EQ(dialog.TxtOwner.text.get(), "before");
  }
}

TEST_F(Win2KInfoTest, AnswersThatCannotBeSaved_AreNoted) {
  host.FailOn("WriteWholeFile", "keyfile2.txt", host::ErrorClass::kDiskFull, "No space left on device");
  CmdOK_Click(dialog, notes);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].cause, "could not be written: No space left on device");
}

TEST_F(Win2KInfoTest, LoadWithoutScript_TakesTheTemplateOfTheProgramFolder) {
  host.AddFile(kTemplate, kUserData + "[Identification]\r\nJoinWorkgroup=GROUP\r\n");
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), kTemplate);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Ann Lee");
  EXPECT_EQ(dialog.TxtOrg.text.get(), "Acme");
  EXPECT_EQ(dialog.TxtPCName.text.get(), "PC");
  ExpectChoice(false, "GROUP");
}

TEST_F(Win2KInfoTest, LoadWithExistingScript_KeepsIt) {
  host.AddFile(kTemplate, kUserData);
  host.AddFile("D:\\mine.sif", "[UserData]\r\nFullName=Bob\r\n");
  dialog.TxtTemplate.text = "D:\\mine.sif";
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "D:\\mine.sif");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Bob");
}

TEST_F(Win2KInfoTest, LoadWithScriptThatIsGone_FallsBackToTheTemplate) {
  host.AddFile(kTemplate, kUserData);
  dialog.TxtTemplate.text = "D:\\gone.sif";
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), kTemplate);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Ann Lee");
}

TEST_F(Win2KInfoTest, LoadWithoutTheTemplateFile_KeepsTheOtherDefaults) {
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), kTemplate);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
  EXPECT_EQ(dialog.TxtOrg.text.get(), "KORVANE LTD.");
  ExpectChoice(false, "KORVANE_LTD");
}

TEST_F(Win2KInfoTest, LoadWithKeyFiles_DoesNotLookAtThem) {
  host.current_folder = host.program_folder;
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win2KInfo]\r\nOwnerName=Bob\r\n");
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
}

TEST_F(Win2KInfoTest, SecondLoad_ChangesNothing) {
  host.AddFile(kTemplate, kUserData);
  LoadWin2KInfo(dialog, notes);
  dialog.TxtOwner.text = "Bob";
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Bob");
}

TEST_F(Win2KInfoTest, MissingScript_ChangesNothing) {
  FillSetupDataFromUnattend(dialog, notes, "C:\\none.txt");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
  ExpectChoice(false, "KORVANE_LTD");
}

TEST_F(Win2KInfoTest, ScriptWithDomainOnly_ChoosesTheDomain) {
  FillFromScript("[Identification]\r\nJoinDomain=CORP\r\n");
  ExpectChoice(true, "CORP");
}

TEST_F(Win2KInfoTest, ScriptWithWorkgroupOnly_ChoosesTheWorkgroup) {
  dialog.OptJoinDomain.value = true;
  dialog.OptJoinWorkgroup.value = false;
  FillFromScript("[Identification]\r\nJoinWorkgroup=GROUP\r\n");
  ExpectChoice(false, "GROUP");
}

TEST_F(Win2KInfoTest, ScriptWithNeither_ChoosesTheDomainWithoutName) {
  FillFromScript(kUserData);
  ExpectChoice(true, "");
}

TEST_F(Win2KInfoTest, ScriptWithBoth_LeavesTheChoiceAsItWas) {
  FillFromScript("[Identification]\r\nJoinWorkgroup=GROUP\r\nJoinDomain=CORP\r\n");
  ExpectChoice(false, "KORVANE_LTD");
}

TEST_F(Win2KInfoTest, NamesWithNul_AreCutThere) {
  FillFromScript(std::string("[Identification]\r\nJoinWorkgroup=GR\0UP\r\nJoinDomain=\0x\r\n", 54));
  ExpectChoice(false, "GR");
}

TEST_F(Win2KInfoTest, FillToKeyFile_WritesTheSectionInOrder) {
  dialog.TxtTemplate.text = "c:\\u.txt";
  dialog.OptJoinDomain.value = true;
  FillSetupDataToKeyFile(dialog, "C:\\keys.txt");
  EXPECT_EQ(host.Content("C:\\keys.txt"),
            "[Win2KInfo]\r\nTemplateFile=c:\\u.txt\r\nOwnerName=VexaUser\r\nOrganization=KORVANE LTD.\r\n"
            "ComputerName=\r\nWorkgroup=KORVANE_LTD\r\nJoinDomain=True\r\n");
}

TEST_F(Win2KInfoTest, FillToKeyFileThatCannotBeWritten_ReturnsTheFirstFailure) {
  host.FailOn("WriteWholeFile", "keys.txt", host::ErrorClass::kDiskFull, "No space left on device", 1);
  host.FailOn("WriteWholeFile", "keys.txt", host::ErrorClass::kAccessDenied);
  EXPECT_EQ(FillSetupDataToKeyFile(dialog, "C:\\keys.txt").error, host::ErrorClass::kDiskFull);
}

TEST_F(Win2KInfoTest, WrittenKeyFile_ReadsBack) {
  for (const bool domain : {true, false}) {
    dialog.TxtOwner.text = "Jürgen";
    dialog.TxtWorkgroup.text = "NAME";
    dialog.OptJoinDomain.value = domain;
    FillSetupDataToKeyFile(dialog, "C:\\keys.txt");
    forms::FrmWin2KInfo other;
    FillSetupDataFromKeyFile(other, notes, "C:\\keys.txt");
    EXPECT_EQ(other.TxtOwner.text.get(), "Jürgen");
    EXPECT_EQ(other.TxtWorkgroup.text.get(), "NAME");
    EXPECT_EQ(other.OptJoinDomain.value, domain);
    EXPECT_EQ(other.OptJoinWorkgroup.value, !domain);
  }
}

TEST_F(Win2KInfoTest, Browse_AsksWithTheDialogsOwnDataAndReadsTheChosenScript) {
  host.AddFile("D:\\mine.sif", kUserData + "[Identification]\r\nJoinDomain=CORP\r\n");
  user.file_answer = "D:\\mine.sif";
  BindWin2KInfo(dialog, user, notes);
  forms::Press(dialog.CmdBrwUnattend);
  EXPECT_THAT(user.asked, ::testing::ElementsAre("Unattended setup information file <unattend.txt>"));
  EXPECT_THAT(user.file_filters, ::testing::ElementsAre("Text file (*.txt; *.sif)|*.txt; *.sif"));
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "D:\\mine.sif");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Ann Lee");
  EXPECT_EQ(dialog.TxtOrg.text.get(), "Acme");
  EXPECT_EQ(dialog.TxtPCName.text.get(), "PC");
  ExpectChoice(true, "CORP");
}

TEST_F(Win2KInfoTest, DroppedScript_IsReadLikeAChosenOne) {
  host.AddFile("D:\\mine.sif", kUserData);
  BindWin2KInfo(dialog, user, notes);
  EXPECT_EQ(dialog.TxtTemplate.drop_kind, forms::DropKind::kFile);
  EXPECT_TRUE(forms::Drop(dialog.TxtTemplate, "D:\\mine.sif"));
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "D:\\mine.sif");
  EXPECT_EQ(dialog.DlgOpen.file_name, "D:\\mine.sif");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Ann Lee");
  EXPECT_THAT(user.asked, ::testing::IsEmpty());
}

TEST_F(Win2KInfoTest, ChosenScript_IsShownAsTheSystemSpellsIt) {
  host.shows_slashes = true;
  user.file_answer = "\\home\\ann\\mine.sif";
  CmdBrwUnattend_Click(dialog, user, notes);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "/home/ann/mine.sif");
}

TEST_F(Win2KInfoTest, OwnTemplate_IsShownAsTheSystemSpellsIt) {
  host.shows_slashes = true;
  host.program_folder = "\\home\\ann\\discwright";
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "/home/ann/discwright/files/inf_files/win2k_template.inf");
}

TEST_F(Win2KInfoTest, BrowseCancelled_ChangesNothing) {
  host.AddFile("D:\\mine.sif", kUserData);
  dialog.TxtTemplate.text = "D:\\mine.sif";
  CmdBrwUnattend_Click(dialog, user, notes);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "D:\\mine.sif");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
  ExpectChoice(false, "KORVANE_LTD");
}

TEST_F(Win2KInfoTest, OK_SavesTheFieldsAndHidesTheDialog) {
  BindWin2KInfo(dialog, user, notes);
  dialog.visible = true;
  dialog.TxtPCName.text = "PC";
  forms::Press(dialog.CmdOK);
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(INIFile("C:\\Discwright\\keyfile2.txt").GetINIKey("Win2KInfo", "ComputerName"), "PC");
}

TEST_F(Win2KInfoTest, Cancel_HidesTheDialogSavesNothingAndKeepsTheTexts) {
  BindWin2KInfo(dialog, user, notes);
  LoadWin2KInfo(dialog, notes);
  dialog.visible = true;
  dialog.TxtPCName.text = "PC";
  forms::Press(dialog.CmdCancel);
  EXPECT_FALSE(dialog.visible);
  EXPECT_TRUE(host.Files().empty());
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtPCName.text.get(), "PC");
}

TEST_F(Win2KInfoTest, FillFromMissingKeyFile_ChangesNothing) {
  FillSetupDataFromKeyFile(dialog, notes, "C:\\none.txt");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
}

}  // namespace
}  // namespace discwright::settings
