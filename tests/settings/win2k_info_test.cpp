// Tests of the Windows 2000/XP/2003 installation info dialog's fields.
#include "settings/win2k_info.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/user_actions.h"
#include "settings/ini_file.h"
#include "tests/support/fake_host.h"
#include "tests/support/fake_user.h"

namespace discwright::settings {
namespace {

const std::string kTemplate = "C:\\Discwright\\files\\inf_files\\win2k_template.inf";
const std::string kUserData = "[UserData]\r\nFullName=\"Ann Lee\"\r\nOrgName=\"Acme\"\r\nComputerName=PC\r\n";

class Win2KInfoTest : public ::testing::Test {
 protected:
  testing::FakeHost host;
  testing::FakeUser user;
  forms::FrmWin2KInfo dialog;

  void ExpectChoice(bool domain, const std::string& name) {
    EXPECT_EQ(dialog.OptJoinDomain.value, domain);
    EXPECT_EQ(dialog.OptJoinWorkgroup.value, !domain);
    EXPECT_EQ(dialog.TxtWorkgroup.text.get(), name);
  }

  void FillFromScript(const std::string& text) {
    host.AddFile("C:\\script.txt", text);
    FillSetupDataFromUnattend(dialog, "C:\\script.txt");
  }
};

TEST_F(Win2KInfoTest, LoadWithoutScript_TakesTheTemplateOfTheProgramFolder) {
  host.AddFile(kTemplate, kUserData + "[Identification]\r\nJoinWorkgroup=GROUP\r\n");
  LoadWin2KInfo(dialog);
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
  LoadWin2KInfo(dialog);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "D:\\mine.sif");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Bob");
}

TEST_F(Win2KInfoTest, LoadWithScriptThatIsGone_FallsBackToTheTemplate) {
  host.AddFile(kTemplate, kUserData);
  dialog.TxtTemplate.text = "D:\\gone.sif";
  LoadWin2KInfo(dialog);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), kTemplate);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Ann Lee");
}

TEST_F(Win2KInfoTest, LoadWithoutTheTemplateFile_KeepsTheOtherDefaults) {
  LoadWin2KInfo(dialog);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), kTemplate);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
  EXPECT_EQ(dialog.TxtOrg.text.get(), "KORVANE LTD.");
  ExpectChoice(false, "KORVANE_LTD");
}

TEST_F(Win2KInfoTest, LoadWithKeyFiles_DoesNotLookAtThem) {
  host.current_folder = host.program_folder;
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win2KInfo]\r\nOwnerName=Bob\r\n");
  LoadWin2KInfo(dialog);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
}

TEST_F(Win2KInfoTest, SecondLoad_ChangesNothing) {
  host.AddFile(kTemplate, kUserData);
  LoadWin2KInfo(dialog);
  dialog.TxtOwner.text = "Bob";
  LoadWin2KInfo(dialog);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Bob");
}

TEST_F(Win2KInfoTest, MissingScript_ChangesNothing) {
  FillSetupDataFromUnattend(dialog, "C:\\none.txt");
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
    FillSetupDataFromKeyFile(other, "C:\\keys.txt");
    EXPECT_EQ(other.TxtOwner.text.get(), "Jürgen");
    EXPECT_EQ(other.TxtWorkgroup.text.get(), "NAME");
    EXPECT_EQ(other.OptJoinDomain.value, domain);
    EXPECT_EQ(other.OptJoinWorkgroup.value, !domain);
  }
}

TEST_F(Win2KInfoTest, Browse_AsksWithTheDialogsOwnDataAndReadsTheChosenScript) {
  host.AddFile("D:\\mine.sif", kUserData + "[Identification]\r\nJoinDomain=CORP\r\n");
  user.file_answer = "D:\\mine.sif";
  BindWin2KInfo(dialog, user);
  forms::Press(dialog.CmdBrwUnattend);
  EXPECT_THAT(user.asked, ::testing::ElementsAre("Unattended setup information file <unattend.txt>"));
  EXPECT_THAT(user.file_filters, ::testing::ElementsAre("Text file (*.txt; *.sif)|*.txt; *.sif"));
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "D:\\mine.sif");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Ann Lee");
  EXPECT_EQ(dialog.TxtOrg.text.get(), "Acme");
  EXPECT_EQ(dialog.TxtPCName.text.get(), "PC");
  ExpectChoice(true, "CORP");
}

TEST_F(Win2KInfoTest, BrowseCancelled_ChangesNothing) {
  host.AddFile("D:\\mine.sif", kUserData);
  dialog.TxtTemplate.text = "D:\\mine.sif";
  CmdBrwUnattend_Click(dialog, user);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), "D:\\mine.sif");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
  ExpectChoice(false, "KORVANE_LTD");
}

TEST_F(Win2KInfoTest, OK_SavesTheFieldsAndHidesTheDialog) {
  BindWin2KInfo(dialog, user);
  dialog.visible = true;
  dialog.TxtPCName.text = "PC";
  forms::Press(dialog.CmdOK);
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(INIFile("C:\\Discwright\\keyfile2.txt").GetINIKey("Win2KInfo", "ComputerName"), "PC");
}

TEST_F(Win2KInfoTest, Cancel_HidesTheDialogSavesNothingAndKeepsTheTexts) {
  BindWin2KInfo(dialog, user);
  LoadWin2KInfo(dialog);
  dialog.visible = true;
  dialog.TxtPCName.text = "PC";
  forms::Press(dialog.CmdCancel);
  EXPECT_FALSE(dialog.visible);
  EXPECT_TRUE(host.Files().empty());
  LoadWin2KInfo(dialog);
  EXPECT_EQ(dialog.TxtPCName.text.get(), "PC");
}

TEST_F(Win2KInfoTest, FillFromMissingKeyFile_ChangesNothing) {
  FillSetupDataFromKeyFile(dialog, "C:\\none.txt");
  EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
}

}  // namespace
}  // namespace discwright::settings
