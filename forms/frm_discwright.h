// Describes the main window as data: its state and its eleven pages, with the name, the caption and the first value of
// each control. The faces show it, and the wizard reads and changes it.
#pragma once

#include <cstdint>

#include "forms/control.h"

namespace discwright::forms {

// Glyphs of the symbol font that LblRight1 to LblRight5 show: characters 252 and 251.
inline constexpr const char* kTick = "\u00FC";
inline constexpr const char* kCross = "\u00FB";

inline constexpr std::size_t kPageCount = 11;
inline constexpr std::size_t kFinishPage = 9;
inline constexpr std::size_t kProgressPage = 10;

// The web addresses on the finish page: placeholders until the project has a web site.
inline constexpr const char* kHomePage = "https://discwright.example.org/";
inline constexpr const char* kCdShellPage = "https://cdshell.example.org/";
inline constexpr const char* kBootableCdsPage = "https://bootable-cds.example.org/";

// The order of the declarations is the order of the controls on a page and the order of the Tab key.
struct FrmDiscwright : Form {
  FrmDiscwright();

  std::int16_t Step = 0;         // the page shown, 0 to 10; after a cancellation the page on which Cancel was pressed
  bool Finished = false;         // the build has ended or was cancelled; Finish now ends the program
  bool CancelCopy = false;       // the user has cancelled the build
  bool MKISOFSRunning = false;   // the mastering program is running
  bool ASyncAppRunning = false;  // an external program is running

  Picture PicSideImage{*this, "PicSideImage"};
  FileDialog DlgOpen{*this, "DlgOpen"};
  ControlArray<Frame, kPageCount> FraMain{*this, "FraMain"};

  // Page 0: welcome.
  Label LblHeadWelcome{FraMain[0], "LblHeadWelcome", "  Welcome to The Vexa Discwright v2.0"};
  Label LblWelcome1{FraMain[0], "LblWelcome1",
                    "The wizard will assist you in the process of creating the Vexa Rescue CD."};
  Label LblWelcome2{FraMain[0], "LblWelcome2",
                    "It will create an ISO file that contains all the contents of the Vexa Rescue CD, you can burn "
                    "this file using your favorite CD/DVD recording utility."};
  Label LblPlace{FraMain[0], "LblPlace"};  // where an installed program works; otherwise hidden
  Label LblWelcome3{FraMain[0], "LblWelcome3", "Press Next to start the wizard"};

  // Page 1: contents.
  Label LblHeadContents{FraMain[1], "LblHeadContents", "  Select the Contents of the CD"};
  CheckBox ChkGet_Vexadisks{
      FraMain[1], "ChkGet_Vexadisks", "Vexa Boot Disks (Vexa Software - Vexa Net)", {.key = 'V'}, 1};
  CheckBox ChkGet_Vexanetplus{
      FraMain[1], "ChkGet_Vexanetplus", "Use the Linkwell Plus disk for Network Access", {.key = 'L'}};
  CheckBox ChkSelectDrivers{FraMain[1], "ChkSelectDrivers", "Accept default list of Network drivers", {.key = 'A'}};
  CheckBox ChkGet_Win2k{FraMain[1], "ChkGet_Win2k", "Microsoft Windows 2000/XP/2003 Setup Files", {.key = 'W'}};
  CheckBox ChkGet_Win9x{FraMain[1], "ChkGet_Win9x", "Microsoft Windows 98/98SE/Me Setup Files", {.key = 'M'}};
  CheckBox ChkGet_Advtools{FraMain[1], "ChkGet_Advtools", "Advanced Tools", {.key = 'T'}};

  // Page 2: Windows 2000/XP/2003, source and service pack.
  Label LblHeadWin2K1{FraMain[2], "LblHeadWin2K1", "  Add Windows 2000/XP/2003 Setup (1)"};
  Label Lbl_i386_Loc{FraMain[2], "Lbl_i386_Loc", "Location of Windows Setup Files", {.key = 'L'}};
  TextBox Txt_i386_Loc{FraMain[2], "Txt_i386_Loc", Lbl_i386_Loc};
  CommandButton CmdBrw_i386_loc{FraMain[2], "CmdBrw_i386_loc", "Browse ...", {.key = 'r', .beside = true}};
  Label LblWin2KOSVer{FraMain[2], "LblWin2KOSVer", "Microsoft Windows XP Professional Edition"};
  CheckBox ChkSlipstream{FraMain[2], "ChkSlipstream", "Integrate Service Pack", {.key = 'I'}};
  Frame FraSP_Loc{FraMain[2], "FraSP_Loc"};
  Label LblSP{FraSP_Loc, "LblSP", "Location of Service Pack exe file", {.key = 'S'}};
  TextBox TxtSP_exe{FraSP_Loc, "TxtSP_exe", LblSP, "C:\\SP\\xpsp1_en_x86.exe"};
  CommandButton CmdBrw_spexe{FraSP_Loc, "CmdBrw_spexe", "Browse ...", {.key = 'o', .beside = true}};
  CheckBox ChkHotfix{FraMain[2], "ChkHotfix", "Integrate Post SP Hotfixes", {.key = 'P'}};
  Frame FraHotfix{FraMain[2], "FraHotfix"};
  CommandButton Cmd_Sel_hotfixes{FraHotfix, "Cmd_Sel_hotfixes", "Select Hotfixes to include...", {.key = 'x'}};
  Label LblHotNum{FraHotfix, "LblHotNum", "Hotfixes : 0", {.beside = true}};

  // Page 3: Windows 2000/XP/2003, options and answers.
  Label LblHeadWin2K2{FraMain[3], "LblHeadWin2K2", "  Add Windows 2000/XP/2003 Setup (2)"};
  Frame FraMisc{FraMain[3], "FraMisc", " Miscellaneous Options : "};
  CheckBox ChkDelTree_Lang{FraMisc, "ChkDelTree_Lang", "Remove Extra Languages Files", {.key = 'R'}};
  Label LblDelTree_Lang{FraMisc, "LblDelTree_Lang",
                        "(Use only if you don't need international Languages support \"Asian Languages - "
                        "Arabic/Hebrew\")"};
  Frame FraWin2KInfo{FraMain[3], "FraWin2KInfo", " Customize Installation Info : "};
  CommandButton CmdSetWin2KInfo{FraWin2KInfo, "CmdSetWin2KInfo", "Set Windows Installation Info...", {.key = 'S'}};
  CheckBox ChkWin2KInfo_Assis{
      FraWin2KInfo, "ChkWin2KInfo_Assis", "Store this info in the Vexa Win2K Setup Assistant", {.key = 'A'}};
  CheckBox ChkWin2KInfo_Unattend{
      FraWin2KInfo, "ChkWin2KInfo_Unattend", "Store this info in the Windows 2000/XP Installation", {.key = 'W'}};

  // Page 4: Windows 98/98SE/Me.
  Label LblHeadWin9x{FraMain[4], "LblHeadWin9x", "  Add Windows 98/98SE/Me Setup"};
  Label LblWin9x_Loc{FraMain[4], "LblWin9x_Loc", "Location of Windows Setup Files", {.key = 'L'}};
  TextBox TxtWin9x_Loc{FraMain[4], "TxtWin9x_Loc", LblWin9x_Loc};
  CommandButton CmdBrw_Win9xLoc{FraMain[4], "CmdBrw_Win9xLoc", "Browse ...", {.key = 'r', .beside = true}};
  Frame FraWin9xInfo{FraMain[4], "FraWin9xInfo", " Customize Installation Info : "};
  CommandButton CmdSetWin9xInfo{FraWin9xInfo, "CmdSetWin9xInfo", "Set Windows Installation Info...", {.key = 'S'}};
  CheckBox ChkWin9xInfo_Assis{
      FraWin9xInfo, "ChkWin9xInfo_Assis", "Store this info in the Vexa Setup Assistant", {.key = 'A'}};
  CheckBox ChkWin9xInfo_MSBatch{
      FraWin9xInfo, "ChkWin9xInfo_MSBatch", "Store this info in the Windows Installation", {.key = 'W'}};

  // Page 5: advanced tools.
  Label LblHeadAdvtools{FraMain[5], "LblHeadAdvtools", "  Advanced Tools"};
  CheckBox ChkERDC{FraMain[5], "ChkERDC", "ERD Commander 2002/2003", {.key = 'E'}};
  Label LblERDC{FraMain[5], "LblERDC", "Specify the location of your ERD Commander CD :", {.key = 'S', .inset = true}};
  TextBox TxtERDC{FraMain[5], "TxtERDC", LblERDC, "", {.inset = true}};
  CommandButton CmdBrw_ERDC{FraMain[5], "CmdBrw_ERDC", "Browse ...", {.key = 'r', .beside = true}};
  CheckBox ChkBCon{FraMain[5], "ChkBCon", "O&O BlueCon XXL Pro", {.key = 'O'}};
  Label LblBCon{FraMain[5], "LblBCon", "Specify the location of your BlueCon CD :", {.key = 'l', .inset = true}};
  TextBox TxtBCon{FraMain[5], "TxtBCon", LblBCon, "", {.inset = true}};
  CommandButton CmdBrw_BCon{FraMain[5], "CmdBrw_BCon", "Browse ...", {.key = 'w', .beside = true}};

  // Page 6: utilities and additional files.
  Label LblHeadUtils{FraMain[6], "LblHeadUtils", "  Vexa Utilities / Additional Files"};
  Frame FraUtils{FraMain[6], "FraUtils"};
  CheckBox ChkVexaUtils{FraUtils, "ChkVexaUtils", " Vexa Utilities ", {.key = 'V', .heads = true}};
  Label LblUtils{FraUtils, "LblUtils", "Location of the Vexa Utilities to be used in the CD :", {.key = 'L'}};
  TextBox TxtUtils_Loc{FraUtils, "TxtUtils_Loc", LblUtils};
  CommandButton CmdExp_Utils{FraUtils, "CmdExp_Utils", "Explore...", {.key = 'E'}};
  CommandButton CmdBrw_Utils{FraUtils, "CmdBrw_Utils", "Browse...", {.key = 'r', .beside = true}};
  Frame FraAddFiles{FraMain[6], "FraAddFiles"};
  CheckBox ChkAddFiles{FraAddFiles, "ChkAddFiles", " Additional Files ", {.key = 'A', .heads = true}};
  Label LblAddFiles{
      FraAddFiles, "LblAddFiles", "Location of the Additional Files to be Added to the CD :", {.key = 'o'}};
  TextBox TxtAddFiles_Loc{FraAddFiles, "TxtAddFiles_Loc", LblAddFiles};
  CommandButton CmdExp_AddFiles{FraAddFiles, "CmdExp_AddFiles", "Explore...", {.key = 'x'}};
  CommandButton CmdBrw_AddFiles{FraAddFiles, "CmdBrw_AddFiles", "Browse...", {.key = 'w', .beside = true}};

  // Page 7: ISO options.
  Label LblHeadISO{FraMain[7], "LblHeadISO", "  Specify ISO File Options"};
  CheckBox ChkPassProtect{FraMain[7], "ChkPassProtect", "Password Protect the created CD", {.key = 'P'}};
  Label LblPass1{FraMain[7], "LblPass1", "Password", {.key = 'a', .inset = true}};
  TextBox TxtPass1{FraMain[7], "TxtPass1", LblPass1, "", {.beside = true}};
  Label LblPass2{FraMain[7], "LblPass2", "Confirm Password", {.key = 'm', .inset = true}};
  TextBox TxtPass2{FraMain[7], "TxtPass2", LblPass2, "", {.beside = true}};
  Frame FraISO{FraMain[7], "FraISO", " ISO File Details "};
  Label LblISOLoc{FraISO, "LblISOLoc", "Specify the Location to save the generated ISO file to:", {.key = 'S'}};
  TextBox TxtISOLoc{FraISO, "TxtISOLoc", LblISOLoc, "c:\\vexacd.iso"};
  CommandButton CmdBrw_ISOfile{FraISO, "CmdBrw_ISOfile", "Browse...", {.key = 'r', .beside = true}};
  CheckBox ChkOptimizeISO{
      FraISO, "ChkOptimizeISO", "Optimize the ISO file size by encoding duplicate files", {.key = 'O'}};
  CheckBox ChkCleanSession{FraISO, "ChkCleanSession", "Clean Session's temporary files after completing", {.key = 'l'}};

  // Page 8: summary.
  Label LblHeadSummery{FraMain[8], "LblHeadSummery", "  Ready to create ISO file", {.key = 'R'}};
  TextBox TxtSummery{FraMain[8], "TxtSummery", LblHeadSummery};

  // Page 9: finish. LblResult and TxtReport are shown after a build. The wizard fills them in, always with the letter
  // of the access key in the text of LblResult.
  Label LblFinish{FraMain[9], "LblFinish", "  Operation completed successfully"};
  Label LblAbort{FraMain[9], "LblAbort", "Couldn't access destination ISO File"};
  Label LblResult{FraMain[9], "LblResult", "The result of the build", {.key = 'i'}};
  TextBox TxtReport{FraMain[9], "TxtReport", LblResult};
  Label LblVisit_vexacd{FraMain[9],
                        "LblVisit_vexacd",
                        "Visit the Vexa Rescue CD homepage for updated versions of the Vexa Discwright at :",
                        {.key = 'V'}};
  Link LblLink_vexacd{FraMain[9], "LblLink_vexacd", LblVisit_vexacd, kHomePage};
  Label LblVisit_cdshell{FraMain[9],
                         "LblVisit_cdshell",
                         "The CDShell homepage, simply the most advanced Bootable CDs Loader :",
                         {.key = 'D'}};
  Link LblLink_cdshell{FraMain[9], "LblLink_cdshell", LblVisit_cdshell, kCdShellPage};
  Label LblVisit_Third{FraMain[9], "LblVisit_Third", "For more about creating bootable CD-ROMs, visit :", {.key = 'm'}};
  Link LblLink_Third{FraMain[9], "LblLink_Third", LblVisit_Third, kBootableCdsPage};

  // Page 10: progress. It has one line for each step of the build, with its mark before the text.
  Label LblWait{FraMain[10], "LblWait", "  Please Wait ... Creating the ISO file"};
  Label LblRight1{FraMain[10], "LblRight1"};
  Label LblMsg1{FraMain[10], "LblMsg1", "Creating Vexa Boot Disks", {.beside = true}};
  Label LblRight2{FraMain[10], "LblRight2"};
  Label LblMsg2{FraMain[10], "LblMsg2", "Inserting Windows 2000/XP/2003 Setup Files", {.beside = true}};
  Label LblRight3{FraMain[10], "LblRight3"};
  Label LblMsg3{FraMain[10], "LblMsg3", "Inserting Windows 9x Setup Files", {.beside = true}};
  Label LblRight4{FraMain[10], "LblRight4"};
  Label LblMsg4{FraMain[10], "LblMsg4", "Adding Vexa Utilities/Advanced Tools", {.beside = true}};
  Label LblRight5{FraMain[10], "LblRight5"};
  Label LblMsg5{FraMain[10], "LblMsg5", "Creating Final ISO File", {.beside = true}};
  Label LblSub_Step{FraMain[10], "LblSub_Step"};
  ProgressBar BarSub_Step{FraMain[10], "BarSub_Step"};

  // These buttons are below every page. CmdFinish is shown instead of CmdNext.
  CommandButton CmdHelp{*this, "CmdHelp", "&Help", {.key = kKeyInCaption}};
  CommandButton CmdCancel{*this, "CmdCancel", "&Cancel", {.key = kKeyInCaption, .beside = true}};
  CommandButton CmdBack{*this, "CmdBack", "< &Back", {.key = kKeyInCaption, .beside = true}};
  CommandButton CmdNext{*this, "CmdNext", "&Next >", {.key = kKeyInCaption, .beside = true}};
  CommandButton CmdFinish{*this, "CmdFinish", "&Finish", {.key = kKeyInCaption, .beside = true}};

  // Returns the title line of a page. `page` is an index into FraMain.
  const Label& Heading(std::size_t page) const;
};

}  // namespace discwright::forms
