// Tests of the Windows 98/Me installation info dialog's fields.
#include "settings/win9x_info.h"

#include <gtest/gtest.h>

#include "forms/user_actions.h"
#include "settings/ini_file.h"
#include "tests/support/fake_host.h"
#include "util/notes.h"

namespace discwright::settings {
namespace {

const std::string kKeys =
    "[Win9xInfo]\r\nOwnerName=Ann\r\nOrganization=Acme\r\nOptimizedFor=Microsoft Windows Millennium\r\n"
    "ComputerName=PC\r\nWorkgroup=GROUP\r\n";

class Win9xInfoTest : public ::testing::Test {
 protected:
  testing::FakeHost host;
  util::Notes notes;
  forms::FrmWin9xInfo dialog;

  void ExpectDefaults() {
    EXPECT_EQ(dialog.TxtOwner.text.get(), "VexaUser");
    EXPECT_EQ(dialog.TxtOrg.text.get(), "KORVANE LTD.");
    EXPECT_EQ(dialog.TxtPCName.text.get(), "");
    EXPECT_EQ(dialog.TxtWorkgroup.text.get(), "KORVANE_LTD");
    EXPECT_EQ(dialog.TxtOSType.text.get(), "Microsoft Windows 98");
  }
};

TEST_F(Win9xInfoTest, KeyFileThatCannotBeRead_IsNotedAndTheFieldsKeepTheirTexts) {
  host.AddFile("C:\\keys.txt", kKeys);
  for (const char* call : {"CheckReadable", "ReadWholeFile"}) {
    notes = {};
    host.FailOn(call, "keys.txt", host::ErrorClass::kNotReady, "the disk is gone", 1);
    FillSetupDataFromKeyFile(dialog, notes, "C:\\keys.txt");
    ASSERT_EQ(notes.all().size(), 1U) << call;
    EXPECT_EQ(notes.all()[0].place, "C:\\keys.txt");
    ExpectDefaults();
  }
}

TEST_F(Win9xInfoTest, AnswersThatCannotBeSaved_AreNoted) {
  host.FailOn("WriteWholeFile", "keyfile2.txt", host::ErrorClass::kDiskFull, "No space left on device");
  CmdOK_Click(dialog, notes);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].cause, "could not be written: No space left on device");
}

TEST_F(Win9xInfoTest, LoadWithoutKeyFiles_KeepsTheDefaults) {
  LoadWin9xInfo(dialog, notes);
  ExpectDefaults();
}

TEST_F(Win9xInfoTest, LoadWithWorkingKeyFile_ReadsTheBareNameInTheCurrentFolder) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\nOwnerName=not this one\r\n");
  host.AddFile("C:\\Current\\keyfile2.txt", kKeys);
  LoadWin9xInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "Ann");
  EXPECT_EQ(dialog.TxtOrg.text.get(), "Acme");
  EXPECT_EQ(dialog.TxtOSType.text.get(), "Microsoft Windows Millennium");
  EXPECT_EQ(dialog.TxtPCName.text.get(), "PC");
  EXPECT_EQ(dialog.TxtWorkgroup.text.get(), "GROUP");
}

TEST_F(Win9xInfoTest, LoadWithKeyFilesInTheProgramFolderOnly_KeepsTheDefaults) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", kKeys);
  host.AddFile("C:\\Discwright\\keyfile.txt", kKeys);
  LoadWin9xInfo(dialog, notes);
  ExpectDefaults();
}

TEST_F(Win9xInfoTest, LoadWithKeyFilesInTheCurrentFolderOnly_KeepsTheDefaults) {
  host.AddFile("C:\\Current\\keyfile2.txt", kKeys);
  LoadWin9xInfo(dialog, notes);
  ExpectDefaults();
}

TEST_F(Win9xInfoTest, LoadInTheProgramFolder_PrefersTheWorkingKeyFile) {
  host.current_folder = host.program_folder;
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\nOwnerName=working\r\n");
  host.AddFile("C:\\Discwright\\keyfile.txt", "[Win9xInfo]\r\nOwnerName=build\r\n");
  LoadWin9xInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "working");
}

TEST_F(Win9xInfoTest, LoadWithBuildCopyOnly_ReadsTheBareNameInTheCurrentFolder) {
  host.AddFile("C:\\Discwright\\keyfile.txt", "[Win9xInfo]\r\nOwnerName=not this one\r\n");
  host.AddFile("C:\\Current\\keyfile.txt", "[Win9xInfo]\r\nOwnerName=build\r\n");
  LoadWin9xInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtOwner.text.get(), "build");
}

class Win9xInfoOnWindows98 : public Win9xInfoTest {
 protected:
  Win9xInfoOnWindows98() {
    host.platform_id = 1;
    const std::string windows = "Software\\Microsoft\\Windows\\CurrentVersion\\";
    const std::string network = "System\\CurrentControlSet\\Services\\VxD\\VNETSUP\\";
    host.registry = {{windows + "RegisteredOwner", "Ann"},
                     {windows + "RegisteredOrganization", "Acme"},
                     {windows + "ProductName", "Microsoft Windows ME"},
                     {network + "ComputerName", "PC"},
                     {network + "Workgroup", "GROUP"}};
  }

  void ExpectRegistry() {
    EXPECT_EQ(dialog.TxtOwner.text.get(), "Ann");
    EXPECT_EQ(dialog.TxtOrg.text.get(), "Acme");
    EXPECT_EQ(dialog.TxtOSType.text.get(), "Microsoft Windows ME");
    EXPECT_EQ(dialog.TxtPCName.text.get(), "PC");
    EXPECT_EQ(dialog.TxtWorkgroup.text.get(), "GROUP");
  }
};

TEST_F(Win9xInfoOnWindows98, LoadWithoutKeyFiles_ReadsTheRegistry) {
  LoadWin9xInfo(dialog, notes);
  ExpectRegistry();
}

TEST_F(Win9xInfoOnWindows98, LoadWithAKeyFile_DoesNotReadTheRegistry) {
  for (const char* name : {"keyfile2.txt", "keyfile.txt"}) {
    host.AddFile(std::string("C:\\Discwright\\") + name, "");
    dialog.loaded = false;
    LoadWin9xInfo(dialog, notes);
    ExpectDefaults();
    host::RemoveFile(std::string("C:\\Discwright\\") + name);
  }
}

TEST_F(Win9xInfoOnWindows98, LoadOnTheNtFamily_KeepsTheDefaults) {
  host.platform_id = 2;
  LoadWin9xInfo(dialog, notes);
  ExpectDefaults();
}

TEST_F(Win9xInfoOnWindows98, ValueThatIsNotThere_EmptiesItsField) {
  host.registry.clear();
  FillSetupDataFromReg(dialog);
  for (const forms::TextBox* box :
       {&dialog.TxtOwner, &dialog.TxtOrg, &dialog.TxtOSType, &dialog.TxtPCName, &dialog.TxtWorkgroup}) {
    EXPECT_EQ(box->text.get(), "") << box->name();
  }
}

TEST_F(Win9xInfoOnWindows98, ValueWithNul_IsCutThere) {
  for (auto& [name, text] : host.registry) text += std::string("\0x", 2);
  FillSetupDataFromReg(dialog);
  ExpectRegistry();
}

TEST_F(Win9xInfoTest, OK_SavesTheFieldsAndHidesTheDialog) {
  BindWin9xInfo(dialog, notes);
  dialog.visible = true;
  dialog.TxtPCName.text = "PC";
  forms::Press(dialog.CmdOK);
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(INIFile("C:\\Discwright\\keyfile2.txt").GetINIKey("Win9xInfo", "ComputerName"), "PC");
}

TEST_F(Win9xInfoTest, Cancel_HidesTheDialogSavesNothingAndKeepsTheTexts) {
  BindWin9xInfo(dialog, notes);
  dialog.visible = true;
  dialog.TxtPCName.text = "PC";
  forms::Press(dialog.CmdCancel);
  EXPECT_FALSE(dialog.visible);
  EXPECT_TRUE(host.Files().empty());
  LoadWin9xInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtPCName.text.get(), "PC");
}

TEST_F(Win9xInfoTest, SecondLoad_ChangesNothing) {
  LoadWin9xInfo(dialog, notes);
  host.current_folder = host.program_folder;
  host.AddFile("C:\\Discwright\\keyfile2.txt", kKeys);
  LoadWin9xInfo(dialog, notes);
  ExpectDefaults();
}

TEST_F(Win9xInfoTest, FillFromMissingKeyFile_ChangesNothing) {
  FillSetupDataFromKeyFile(dialog, notes, "C:\\none.txt");
  ExpectDefaults();
}

TEST_F(Win9xInfoTest, FillFromKeyFileWithoutTheKeys_EmptiesTheFields) {
  host.AddFile("C:\\keys.txt", "[Win2KInfo]\r\nOwnerName=Ann\r\n");
  FillSetupDataFromKeyFile(dialog, notes, "C:\\keys.txt");
  for (const forms::TextBox* box :
       {&dialog.TxtOwner, &dialog.TxtOrg, &dialog.TxtOSType, &dialog.TxtPCName, &dialog.TxtWorkgroup}) {
    EXPECT_EQ(box->text.get(), "") << box->name();
  }
}

TEST_F(Win9xInfoTest, FillToKeyFile_WritesTheSectionInOrder) {
  dialog.TxtPCName.text = "PC";
  FillSetupDataToKeyFile(dialog);
  EXPECT_EQ(host.Content("C:\\Discwright\\keyfile2.txt"),
            "[Win9xInfo]\r\nOwnerName=VexaUser\r\nOrganization=KORVANE LTD.\r\nOptimizedFor=Microsoft Windows 98\r\n"
            "ComputerName=PC\r\nWorkgroup=KORVANE_LTD\r\n");
}

TEST_F(Win9xInfoTest, FillToKeyFileThatCannotBeWritten_ReturnsTheFirstFailure) {
  host.FailOn("WriteWholeFile", "keyfile2.txt", host::ErrorClass::kDiskFull, "No space left on device", 1);
  host.FailOn("WriteWholeFile", "keyfile2.txt", host::ErrorClass::kAccessDenied);
  EXPECT_EQ(FillSetupDataToKeyFile(dialog).error, host::ErrorClass::kDiskFull);
}

TEST_F(Win9xInfoTest, FillToExistingKeyFile_KeepsTheOtherSection) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win2KInfo]\r\nOwnerName=Bob\r\n");
  FillSetupDataToKeyFile(dialog);
  EXPECT_TRUE(host.Content("C:\\Discwright\\keyfile2.txt").starts_with("[Win2KInfo]\r\nOwnerName=Bob\r\n[Win9xInfo]"));
}

}  // namespace
}  // namespace discwright::settings
