// Tests of key files and answer files on a real disk.
#include "settings/answer_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/win2k_info.h"
#include "tests/host/temp_folder.h"

namespace discwright::settings {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class AnswerFileOnDisk : public ::testing::Test {
 protected:
  AnswerFileOnDisk() {
    folder.Write("mine.txt", "; f\xFCr 5 \x80\n[UserData]\nFullName = old\n");
    dialog.TxtTemplate.text = folder.Core("mine.txt");
  }

  host::testing::TempFolder folder;
  forms::FrmWin2KInfo dialog;
  util::Notes notes;

  bool Make() {
    FillSetupDataToKeyFile(dialog, folder.Core("keys.txt"));
    return FillSetupDataFromKeyFileToUnattend(notes, folder.Core("keys.txt"), folder.Core("answers.txt"));
  }
  std::string OwnerBehindBoth(const std::string& owner) {
    dialog.TxtOwner.text = owner;
    EXPECT_TRUE(Make());
    EXPECT_EQ(INIFile(folder.Core("keys.txt")).GetINIKey("Win2KInfo", "OwnerName"), owner);
    return INIFile(folder.Core("answers.txt")).GetINIKey("UserData", "FullName");
  }
};

TEST_F(AnswerFileOnDisk, Bytes_AreTheTemplatesAndValuesInWindows1252) {
  dialog.TxtOwner.text = "Jürgen, Söhne";
  EXPECT_TRUE(Make());
  EXPECT_EQ(folder.Read("answers.txt"),
            "; f\xFCr 5 \x80\n[UserData]\nFullName = \"J\xFCrgen, S\xF6hne\"\nOrgName=KORVANE LTD.\r\n"
            "ComputerName=\r\n[Data]\r\nMsDosInitiated=0\r\nUnattendedInstall=Yes\r\n"
            "[Identification]\r\nJoinWorkgroup=KORVANE_LTD\r\nJoinDomain=\r\n");
  EXPECT_EQ(folder.Read("mine.txt"), "; f\xFCr 5 \x80\n[UserData]\nFullName = old\n");
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileOnDisk, HardValues_SurviveTheSystemsProfileCalls) {
  for (const std::string& value :
       {std::string("\"Joe\""), std::string("'Joe'"), std::string("\"a\" and \"b\""), std::string("\""),
        std::string("\"\""), std::string("''"), std::string("'"), std::string("'\""), std::string("=x"),
        std::string(";x"), std::string("[x]"), std::string("%name%"), std::string("C:\\"),
        std::string("Müller, Söhne & Co; = 100 % \"gut\""), std::string(99, 'x')}) {
    EXPECT_EQ(OwnerBehindBoth(value), value);
  }
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileOnDisk, CharacterThatWindows1252Lacks_BecomesAQuestionMarkAndIsNoted) {
  EXPECT_EQ(OwnerBehindBoth("日本 ü"), "?? ü");
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, folder.Core("keys.txt"));
}

TEST_F(AnswerFileOnDisk, ReadOnlyOldFile_IsReplaced) {
  folder.Write("answers.txt", "old");
  folder.SetReadOnly("answers.txt");
  EXPECT_TRUE(Make());
  EXPECT_THAT(folder.Read("answers.txt"), HasSubstr("FullName = VexaUser\n"));
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileOnDisk, KeyFileWhosePlaceIsAFolder_IsReportedAsNotWritten) {
  folder.MakeFolder("keys.txt");
  EXPECT_FALSE(INIFile(folder.Core("keys.txt")).SetINIKey("a", "k", "1").ok());
}

TEST_F(AnswerFileOnDisk, KeyFileInAMissingFolder_IsReportedAsNotWritten) {
  const host::Status written = INIFile(folder.Core("none\\keys.txt")).SetINIKey("a", "k", "1");
  EXPECT_FALSE(written.ok());
  EXPECT_NE(written.cause, "");
}

}  // namespace
}  // namespace discwright::settings
