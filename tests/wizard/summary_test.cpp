// Tests of the summary's text, byte for byte.
#include "wizard/summary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/fake_host.h"

namespace discwright::wizard {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

class SummaryTest : public ::testing::Test {
 protected:
  testing::FakeHost host;
  forms::FrmDiscwright main;
};

TEST_F(SummaryTest, OnlyTheBootDisks_HasHeaderAndFourSections) {
  EXPECT_EQ(GenerateSummery(main),
            "Review you options and Settings below...\r\n"
            "Press Back if there is any option you need to change...\r\n"
            "\r\n"
            "Generated at : Sun 11, 15, 2026\r\n"
            "\r\n"
            "\r\n"
            "[Contents of the CD]\r\n"
            "Vexa Boot Disks (Vexa Software - Vexa Net) :  True\r\n"
            "Microsoft Windows 2000/XP/2003 Setup Files :  False\r\n"
            "Microsoft Windows 98/98SE/Me Setup Files :  False\r\n"
            "Advanced Tools :  False\r\n"
            "\r\n"
            "\r\n"
            "[ISO File Options]\r\n"
            "Save the generated ISO file to :  c:\\vexacd.iso\r\n"
            "Clean Session's temporary files after completing :  False\r\n"
            "Password Protect the created CD :  False\r\n"
            "\r\n"
            "\r\n"
            "[BootDisk Images Options]\r\n"
            "Use the Linkwell Plus disk for Network Access :  False\r\n"
            "Accept default list of Network drivers :  False\r\n"
            "\r\n"
            "\r\n"
            "[Vexa Utilities / Additional Files]\r\n"
            "Location of the Vexa Utilities :  \"\"\r\n"
            "Location of the Additional Files Folder :  \"\"\r\n");
}

constexpr const char* kFullSummary =
    "Review you options and Settings below...\r\n"
    "Press Back if there is any option you need to change...\r\n"
    "\r\n"
    "Generated at : Sun 11, 15, 2026\r\n"
    "\r\n"
    "\r\n"
    "[Contents of the CD]\r\n"
    "Vexa Boot Disks (Vexa Software - Vexa Net) :  True\r\n"
    "Microsoft Windows 2000/XP/2003 Setup Files :  True\r\n"
    "Microsoft Windows 98/98SE/Me Setup Files :  True\r\n"
    "Advanced Tools :  True\r\n"
    "\r\n"
    "\r\n"
    "[ISO File Options]\r\n"
    "Save the generated ISO file to :  E:\\my cd.iso\r\n"
    "Clean Session's temporary files after completing :  True\r\n"
    "Password Protect the created CD :  True\r\n"
    "\r\n"
    "\r\n"
    "[BootDisk Images Options]\r\n"
    "Use the Linkwell Plus disk for Network Access :  True\r\n"
    "Accept default list of Network drivers :  True\r\n"
    "\r\n"
    "\r\n"
    "[Windows 2000/XP/2003 Details]\r\n"
    "Location of Windows Setup Files :  \"D:\\I386\"\r\n"
    "Integrate Service Pack :  True\r\n"
    "Location of Service Pack exe file :  \"E:\\sp4.exe\"\r\n"
    "Store this info in the Vexa Win2K Setup Assistant :  True\r\n"
    "Store this info in the Windows 2000/XP Installation :  True\r\n"
    "Remove Extra Languages Files :  True\r\n"
    "\r\n"
    "\r\n"
    "[Windows 98/98SE/Me Details]\r\n"
    "Location of Windows Setup Files :  \"F:\\WIN98\"\r\n"
    "Store this info in the Vexa Setup Assistant :  True\r\n"
    "Store this info in the Windows Installation :  True\r\n"
    "\r\n"
    "\r\n"
    "[Advanced Tools]\r\n"
    "ERD Commander 2002/2003 Location :  \"G:\\\"\r\n"
    "O&O BlueCon XXL Pro Location :  \"H:\\\"\r\n"
    "\r\n"
    "\r\n"
    "[Vexa Utilities / Additional Files]\r\n"
    "Location of the Vexa Utilities :  \"E:\\utils\"\r\n"
    "Location of the Additional Files Folder :  \"E:\\Additional Files\"\r\n";

TEST_F(SummaryTest, EverythingChosen_HasAllSections) {
  for (forms::CheckBox* box :
       {&main.ChkGet_Vexanetplus, &main.ChkSelectDrivers, &main.ChkGet_Win2k, &main.ChkGet_Win9x, &main.ChkGet_Advtools,
        &main.ChkSlipstream, &main.ChkWin2KInfo_Assis, &main.ChkWin2KInfo_Unattend, &main.ChkDelTree_Lang,
        &main.ChkWin9xInfo_Assis, &main.ChkWin9xInfo_MSBatch, &main.ChkERDC, &main.ChkBCon, &main.ChkVexaUtils,
        &main.ChkAddFiles, &main.ChkCleanSession, &main.ChkPassProtect, &main.ChkOptimizeISO}) {
    box->value = 1;
  }
  main.TxtISOLoc.text = " E:\\my cd.iso ";
  main.TxtPass1.text = "secret";
  main.TxtPass2.text = "secret";
  main.Txt_i386_Loc.text = "D:\\I386";
  main.TxtSP_exe.text = "E:\\sp4.exe";
  main.TxtWin9x_Loc.text = "F:\\WIN98";
  main.TxtERDC.text = "G:\\";
  main.TxtBCon.text = "H:\\";
  main.TxtUtils_Loc.text = "E:\\utils";
  main.TxtAddFiles_Loc.text = "E:\\Additional Files";
  EXPECT_EQ(GenerateSummery(main), kFullSummary);
}

TEST_F(SummaryTest, ContentChosenWithoutItsOptions_StillListsItsLocations) {
  main.ChkGet_Win2k.value = 1;
  main.ChkGet_Advtools.value = 1;
  EXPECT_THAT(GenerateSummery(main), HasSubstr("[Windows 2000/XP/2003 Details]\r\n"
                                               "Location of Windows Setup Files :  \"\"\r\n"
                                               "Integrate Service Pack :  False\r\n"
                                               "Location of Service Pack exe file :  \"C:\\SP\\xpsp1_en_x86.exe\"\r\n"
                                               "Store this info in the Vexa Win2K Setup Assistant :  False\r\n"
                                               "Store this info in the Windows 2000/XP Installation :  False\r\n"
                                               "Remove Extra Languages Files :  False\r\n"
                                               "\r\n"
                                               "\r\n"
                                               "[Advanced Tools]\r\n"
                                               "ERD Commander 2002/2003 Location :  \"\"\r\n"
                                               "O&O BlueCon XXL Pro Location :  \"\"\r\n"));
}

// The lines of the summary that read "True", without that word.
std::vector<std::string> TrueLines(const forms::FrmDiscwright& main) {
  std::istringstream text(GenerateSummery(main));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    if (const std::size_t value = line.find("True\r"); value != line.npos) lines.push_back(line.substr(0, value));
  }
  return lines;
}

TEST_F(SummaryTest, EachBox_IsReadByItsOwnLine) {
  const std::string boot_disks = "Vexa Boot Disks (Vexa Software - Vexa Net) :  ";
  const std::string win2k = "Microsoft Windows 2000/XP/2003 Setup Files :  ";
  const std::string win9x = "Microsoft Windows 98/98SE/Me Setup Files :  ";
  const std::pair<forms::CheckBox*, std::vector<std::string>> rows[] = {
      {&main.ChkGet_Advtools, {boot_disks, "Advanced Tools :  "}},
      {&main.ChkCleanSession, {boot_disks, "Clean Session's temporary files after completing :  "}},
      {&main.ChkPassProtect, {boot_disks, "Password Protect the created CD :  "}},
      {&main.ChkGet_Vexanetplus, {boot_disks, "Use the Linkwell Plus disk for Network Access :  "}},
      {&main.ChkSelectDrivers, {boot_disks, "Accept default list of Network drivers :  "}},
      {&main.ChkGet_Win2k, {boot_disks, win2k}},
      {&main.ChkSlipstream, {boot_disks, win2k, "Integrate Service Pack :  "}},
      {&main.ChkWin2KInfo_Assis, {boot_disks, win2k, "Store this info in the Vexa Win2K Setup Assistant :  "}},
      {&main.ChkWin2KInfo_Unattend, {boot_disks, win2k, "Store this info in the Windows 2000/XP Installation :  "}},
      {&main.ChkDelTree_Lang, {boot_disks, win2k, "Remove Extra Languages Files :  "}},
      {&main.ChkGet_Win9x, {boot_disks, win9x}},
      {&main.ChkWin9xInfo_Assis, {boot_disks, win9x, "Store this info in the Vexa Setup Assistant :  "}},
      {&main.ChkWin9xInfo_MSBatch, {boot_disks, win9x, "Store this info in the Windows Installation :  "}},
      {&main.ChkOptimizeISO, {boot_disks}},
      {&main.ChkERDC, {boot_disks}},
      {&main.ChkBCon, {boot_disks}},
      {&main.ChkVexaUtils, {boot_disks}},
      {&main.ChkAddFiles, {boot_disks}},
      {&main.ChkHotfix, {boot_disks}},
  };
  for (const auto& [box, lines] : rows) {
    main.ChkGet_Win2k.value = std::find(lines.begin(), lines.end(), win2k) != lines.end() ? 1 : 0;
    main.ChkGet_Win9x.value = std::find(lines.begin(), lines.end(), win9x) != lines.end() ? 1 : 0;
    box->value = 1;
    EXPECT_EQ(TrueLines(main), lines) << box->name();
    box->value = 0;
  }
  main.ChkGet_Vexadisks.value = 0;
  EXPECT_EQ(TrueLines(main), std::vector<std::string>());
}

TEST_F(SummaryTest, Win9xWithoutItsOptions_StillListsItsLocation) {
  main.ChkGet_Win9x.value = 1;
  EXPECT_THAT(GenerateSummery(main), HasSubstr("[Windows 98/98SE/Me Details]\r\n"
                                               "Location of Windows Setup Files :  \"\"\r\n"
                                               "Store this info in the Vexa Setup Assistant :  False\r\n"
                                               "Store this info in the Windows Installation :  False\r\n"
                                               "\r\n"
                                               "\r\n"
                                               "[Vexa Utilities / Additional Files]\r\n"));
}

TEST_F(SummaryTest, LocationWithBlanksAround_IsTrimmedAndQuoted) {
  main.ChkGet_Win2k.value = 1;
  main.Txt_i386_Loc.text = "  D:\\I386 ";
  EXPECT_THAT(GenerateSummery(main), HasSubstr("Location of Windows Setup Files :  \"D:\\I386\"\r\n"));
}

TEST_F(SummaryTest, LocationInQuotes_IsNotQuotedAgain) {
  main.TxtUtils_Loc.text = " \"E:\\my tools\" ";
  EXPECT_THAT(GenerateSummery(main), HasSubstr("Location of the Vexa Utilities :  \"E:\\my tools\"\r\n"));
}

TEST_F(SummaryTest, GreyedBox_ReadsTrue) {
  main.ChkGet_Vexanetplus.value = 2;
  EXPECT_THAT(GenerateSummery(main), HasSubstr("Use the Linkwell Plus disk for Network Access :  True\r\n"));
}

TEST_F(SummaryTest, DayAndMonthBelowTen_HaveTwoDigitsMonthFirst) {
  host.today = {2027, 3, 5, "Fri"};
  EXPECT_THAT(GenerateSummery(main), HasSubstr("Generated at : Fri 03, 05, 2027\r\n"));
}

TEST_F(SummaryTest, Passwords_AreNotShown) {
  main.ChkPassProtect.value = 1;
  main.TxtPass1.text = "open sesame";
  main.TxtPass2.text = "open sesame";
  EXPECT_THAT(GenerateSummery(main), Not(HasSubstr("sesame")));
}

TEST_F(SummaryTest, LastLine_HasALineEnd) { EXPECT_THAT(GenerateSummery(main), EndsWith("\"\"\r\n")); }

}  // namespace
}  // namespace discwright::wizard
