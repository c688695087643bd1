// Tests of every control and its first text. The texts are listed here a second time, so that a typing error in a
// record makes a test fail.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>
#include <typeinfo>
#include <utility>

#include "forms/all_windows.h"

namespace discwright::forms {
namespace {

constexpr const char* kMain = "FrmDiscwright";
constexpr const char* kWin2K = "FrmWin2KInfo";
constexpr const char* kWin9x = "FrmWin9xInfo";

struct TextRow {
  const char* window;
  const char* control;
  const char* text;  // the value of a text box, the caption of every other control
};

constexpr TextRow kTexts[] = {
    {kMain, "CmdHelp", "&Help"},
    {kMain, "CmdCancel", "&Cancel"},
    {kMain, "CmdBack", "< &Back"},
    {kMain, "CmdNext", "&Next >"},
    {kMain, "CmdFinish", "&Finish"},

    {kMain, "LblHeadWelcome", "  Welcome to The Vexa Discwright v2.0"},
    {kMain, "LblWelcome1", "The wizard will assist you in the process of creating the Vexa Rescue CD."},
    {kMain, "LblWelcome2",
     "It will create an ISO file that contains all the contents of the Vexa Rescue CD, you can burn this file using "
     "your favorite CD/DVD recording utility."},
    {kMain, "LblWelcome3", "Press Next to start the wizard"},

    {kMain, "LblHeadContents", "  Select the Contents of the CD"},
    {kMain, "ChkGet_Vexadisks", "Vexa Boot Disks (Vexa Software - Vexa Net)"},
    {kMain, "ChkGet_Vexanetplus", "Use the Linkwell Plus disk for Network Access"},
    {kMain, "ChkSelectDrivers", "Accept default list of Network drivers"},
    {kMain, "ChkGet_Win2k", "Microsoft Windows 2000/XP/2003 Setup Files"},
    {kMain, "ChkGet_Win9x", "Microsoft Windows 98/98SE/Me Setup Files"},
    {kMain, "ChkGet_Advtools", "Advanced Tools"},

    {kMain, "LblHeadWin2K1", "  Add Windows 2000/XP/2003 Setup (1)"},
    {kMain, "Lbl_i386_Loc", "Location of Windows Setup Files"},
    {kMain, "CmdBrw_i386_loc", "Browse ..."},
    {kMain, "LblWin2KOSVer", "Microsoft Windows XP Professional Edition"},
    {kMain, "ChkSlipstream", "Integrate Service Pack"},
    {kMain, "LblSP", "Location of Service Pack exe file"},
    {kMain, "TxtSP_exe", "C:\\SP\\xpsp1_en_x86.exe"},
    {kMain, "CmdBrw_spexe", "Browse ..."},
    {kMain, "ChkHotfix", "Integrate Post SP Hotfixes"},
    {kMain, "Cmd_Sel_hotfixes", "Select Hotfixes to include..."},
    {kMain, "LblHotNum", "Hotfixes : 0"},

    {kMain, "LblHeadWin2K2", "  Add Windows 2000/XP/2003 Setup (2)"},
    {kMain, "FraMisc", " Miscellaneous Options : "},
    {kMain, "ChkDelTree_Lang", "Remove Extra Languages Files"},
    {kMain, "LblDelTree_Lang",
     "(Use only if you don't need international Languages support \"Asian Languages - Arabic/Hebrew\")"},
    {kMain, "FraWin2KInfo", " Customize Installation Info : "},
    {kMain, "CmdSetWin2KInfo", "Set Windows Installation Info..."},
    {kMain, "ChkWin2KInfo_Assis", "Store this info in the Vexa Win2K Setup Assistant"},
    {kMain, "ChkWin2KInfo_Unattend", "Store this info in the Windows 2000/XP Installation"},

    {kMain, "LblHeadWin9x", "  Add Windows 98/98SE/Me Setup"},
    {kMain, "LblWin9x_Loc", "Location of Windows Setup Files"},
    {kMain, "CmdBrw_Win9xLoc", "Browse ..."},
    {kMain, "FraWin9xInfo", " Customize Installation Info : "},
    {kMain, "CmdSetWin9xInfo", "Set Windows Installation Info..."},
    {kMain, "ChkWin9xInfo_Assis", "Store this info in the Vexa Setup Assistant"},
    {kMain, "ChkWin9xInfo_MSBatch", "Store this info in the Windows Installation"},

    {kMain, "LblHeadAdvtools", "  Advanced Tools"},
    {kMain, "ChkERDC", "ERD Commander 2002/2003"},
    {kMain, "LblERDC", "Specify the location of your ERD Commander CD :"},
    {kMain, "CmdBrw_ERDC", "Browse ..."},
    {kMain, "ChkBCon", "O&O BlueCon XXL Pro"},
    {kMain, "LblBCon", "Specify the location of your BlueCon CD :"},
    {kMain, "CmdBrw_BCon", "Browse ..."},

    {kMain, "LblHeadUtils", "  Vexa Utilities / Additional Files"},
    {kMain, "ChkVexaUtils", " Vexa Utilities "},
    {kMain, "LblUtils", "Location of the Vexa Utilities to be used in the CD :"},
    {kMain, "CmdExp_Utils", "Explore..."},
    {kMain, "CmdBrw_Utils", "Browse..."},
    {kMain, "ChkAddFiles", " Additional Files "},
    {kMain, "LblAddFiles", "Location of the Additional Files to be Added to the CD :"},
    {kMain, "CmdExp_AddFiles", "Explore..."},
    {kMain, "CmdBrw_AddFiles", "Browse..."},

    {kMain, "LblHeadISO", "  Specify ISO File Options"},
    {kMain, "ChkPassProtect", "Password Protect the created CD"},
    {kMain, "LblPass1", "Password"},
    {kMain, "LblPass2", "Confirm Password"},
    {kMain, "FraISO", " ISO File Details "},
    {kMain, "LblISOLoc", "Specify the Location to save the generated ISO file to:"},
    {kMain, "TxtISOLoc", "c:\\vexacd.iso"},
    {kMain, "CmdBrw_ISOfile", "Browse..."},
    {kMain, "ChkOptimizeISO", "Optimize the ISO file size by encoding duplicate files"},
    {kMain, "ChkCleanSession", "Clean Session's temporary files after completing"},

    {kMain, "LblHeadSummery", "  Ready to create ISO file"},

    {kMain, "LblFinish", "  Operation completed successfully"},
    {kMain, "LblAbort", "Couldn't access destination ISO File"},
    {kMain, "LblResult", "The result of the build"},
    {kMain, "LblVisit_vexacd", "Visit the Vexa Rescue CD homepage for updated versions of the Vexa Discwright at :"},
    {kMain, "LblVisit_cdshell", "The CDShell homepage, simply the most advanced Bootable CDs Loader :"},
    {kMain, "LblLink_vexacd", "https://discwright.example.org/"},
    {kMain, "LblLink_cdshell", "https://cdshell.example.org/"},
    {kMain, "LblLink_Third", "https://bootable-cds.example.org/"},
    {kMain, "LblVisit_Third", "For more about creating bootable CD-ROMs, visit :"},

    {kMain, "LblWait", "  Please Wait ... Creating the ISO file"},
    {kMain, "LblMsg1", "Creating Vexa Boot Disks"},
    {kMain, "LblMsg2", "Inserting Windows 2000/XP/2003 Setup Files"},
    {kMain, "LblMsg3", "Inserting Windows 9x Setup Files"},
    {kMain, "LblMsg4", "Adding Vexa Utilities/Advanced Tools"},
    {kMain, "LblMsg5", "Creating Final ISO File"},

    {kWin2K, "LblTemplate", "Unattended setup script file : "},
    {kWin2K, "CmdBrwUnattend", "Browse ..."},
    {kWin2K, "LblOwner", "Owner Name :"},
    {kWin2K, "TxtOwner", "VexaUser"},
    {kWin2K, "LblOrg", "Organization :"},
    {kWin2K, "TxtOrg", "KORVANE LTD."},
    {kWin2K, "LblPCName", "Computer Name :"},
    {kWin2K, "LblJoinName", "Name of the workgroup or domain :"},
    {kWin2K, "OptJoinWorkgroup", "Join Workgroup :"},
    {kWin2K, "OptJoinDomain", "Join Domain :"},
    {kWin2K, "TxtWorkgroup", "KORVANE_LTD"},
    {kWin2K, "CmdOK", "OK"},
    {kWin2K, "CmdCancel", "Cancel"},

    {kWin9x, "LblOwner", "Owner Name :"},
    {kWin9x, "TxtOwner", "VexaUser"},
    {kWin9x, "LblOrg", "Organization :"},
    {kWin9x, "TxtOrg", "KORVANE LTD."},
    {kWin9x, "LblPCName", "Computer Name :"},
    {kWin9x, "LblWorkgroup", "Workgroup :"},
    {kWin9x, "TxtWorkgroup", "KORVANE_LTD"},
    {kWin9x, "LblOSType", "Optimized for :"},
    {kWin9x, "TxtOSType", "Microsoft Windows 98"},
    {kWin9x, "CmdOK", "OK"},
    {kWin9x, "CmdCancel", "Cancel"},
};

// Controls whose first text is empty: the program or the user fills them in later.
constexpr std::pair<const char*, const char*> kStartEmpty[] = {
    {kMain, "FraMain"},      {kMain, "Txt_i386_Loc"}, {kMain, "FraSP_Loc"},       {kMain, "FraHotfix"},
    {kMain, "TxtWin9x_Loc"}, {kMain, "TxtERDC"},      {kMain, "TxtBCon"},         {kMain, "FraUtils"},
    {kMain, "TxtUtils_Loc"}, {kMain, "FraAddFiles"},  {kMain, "TxtAddFiles_Loc"}, {kMain, "TxtPass1"},
    {kMain, "TxtPass2"},     {kMain, "TxtSummery"},   {kMain, "TxtReport"},       {kMain, "LblRight1"},
    {kMain, "LblRight2"},    {kMain, "LblRight3"},    {kMain, "LblRight4"},       {kMain, "LblRight5"},
    {kMain, "LblSub_Step"},  {kWin2K, "TxtTemplate"}, {kWin2K, "TxtPCName"},      {kWin9x, "TxtPCName"},
    {kMain, "LblPlace"},
};

enum class Kind {
  kCheckBox,
  kTextBox,
  kCommandButton,
  kLabel,
  kLink,
  kFrame,
  kOptionButton,
  kProgressBar,
  kFileDialog,
  kPicture
};

constexpr int kNoPage = -1;  // the control is on the window itself

struct KindRow {
  const char* window;
  const char* control;
  Kind kind;
  int page = kNoPage;
};

// The controls whose names are used by other parts of the program, by session files and by users' scripts.
constexpr KindRow kNamedControls[] = {
    {kMain, "PicSideImage", Kind::kPicture},
    {kMain, "CmdHelp", Kind::kCommandButton},
    {kMain, "CmdCancel", Kind::kCommandButton},
    {kMain, "CmdBack", Kind::kCommandButton},
    {kMain, "CmdNext", Kind::kCommandButton},
    {kMain, "CmdFinish", Kind::kCommandButton},
    {kMain, "DlgOpen", Kind::kFileDialog},
    {kMain, "ChkGet_Vexadisks", Kind::kCheckBox, 1},
    {kMain, "ChkGet_Vexanetplus", Kind::kCheckBox, 1},
    {kMain, "ChkSelectDrivers", Kind::kCheckBox, 1},
    {kMain, "ChkGet_Win2k", Kind::kCheckBox, 1},
    {kMain, "ChkGet_Win9x", Kind::kCheckBox, 1},
    {kMain, "ChkGet_Advtools", Kind::kCheckBox, 1},
    {kMain, "Txt_i386_Loc", Kind::kTextBox, 2},
    {kMain, "CmdBrw_i386_loc", Kind::kCommandButton, 2},
    {kMain, "LblWin2KOSVer", Kind::kLabel, 2},
    {kMain, "ChkSlipstream", Kind::kCheckBox, 2},
    {kMain, "FraSP_Loc", Kind::kFrame, 2},
    {kMain, "LblSP", Kind::kLabel, 2},
    {kMain, "TxtSP_exe", Kind::kTextBox, 2},
    {kMain, "CmdBrw_spexe", Kind::kCommandButton, 2},
    {kMain, "ChkHotfix", Kind::kCheckBox, 2},
    {kMain, "FraHotfix", Kind::kFrame, 2},
    {kMain, "Cmd_Sel_hotfixes", Kind::kCommandButton, 2},
    {kMain, "LblHotNum", Kind::kLabel, 2},
    {kMain, "ChkDelTree_Lang", Kind::kCheckBox, 3},
    {kMain, "CmdSetWin2KInfo", Kind::kCommandButton, 3},
    {kMain, "ChkWin2KInfo_Assis", Kind::kCheckBox, 3},
    {kMain, "ChkWin2KInfo_Unattend", Kind::kCheckBox, 3},
    {kMain, "TxtWin9x_Loc", Kind::kTextBox, 4},
    {kMain, "CmdBrw_Win9xLoc", Kind::kCommandButton, 4},
    {kMain, "CmdSetWin9xInfo", Kind::kCommandButton, 4},
    {kMain, "ChkWin9xInfo_Assis", Kind::kCheckBox, 4},
    {kMain, "ChkWin9xInfo_MSBatch", Kind::kCheckBox, 4},
    {kMain, "ChkERDC", Kind::kCheckBox, 5},
    {kMain, "LblERDC", Kind::kLabel, 5},
    {kMain, "TxtERDC", Kind::kTextBox, 5},
    {kMain, "CmdBrw_ERDC", Kind::kCommandButton, 5},
    {kMain, "ChkBCon", Kind::kCheckBox, 5},
    {kMain, "LblBCon", Kind::kLabel, 5},
    {kMain, "TxtBCon", Kind::kTextBox, 5},
    {kMain, "CmdBrw_BCon", Kind::kCommandButton, 5},
    {kMain, "ChkVexaUtils", Kind::kCheckBox, 6},
    {kMain, "LblUtils", Kind::kLabel, 6},
    {kMain, "TxtUtils_Loc", Kind::kTextBox, 6},
    {kMain, "CmdExp_Utils", Kind::kCommandButton, 6},
    {kMain, "CmdBrw_Utils", Kind::kCommandButton, 6},
    {kMain, "ChkAddFiles", Kind::kCheckBox, 6},
    {kMain, "LblAddFiles", Kind::kLabel, 6},
    {kMain, "TxtAddFiles_Loc", Kind::kTextBox, 6},
    {kMain, "CmdExp_AddFiles", Kind::kCommandButton, 6},
    {kMain, "CmdBrw_AddFiles", Kind::kCommandButton, 6},
    {kMain, "ChkPassProtect", Kind::kCheckBox, 7},
    {kMain, "LblPass1", Kind::kLabel, 7},
    {kMain, "TxtPass1", Kind::kTextBox, 7},
    {kMain, "LblPass2", Kind::kLabel, 7},
    {kMain, "TxtPass2", Kind::kTextBox, 7},
    {kMain, "TxtISOLoc", Kind::kTextBox, 7},
    {kMain, "CmdBrw_ISOfile", Kind::kCommandButton, 7},
    {kMain, "ChkOptimizeISO", Kind::kCheckBox, 7},
    {kMain, "ChkCleanSession", Kind::kCheckBox, 7},
    {kMain, "TxtSummery", Kind::kTextBox, 8},
    {kMain, "LblFinish", Kind::kLabel, 9},
    {kMain, "LblAbort", Kind::kLabel, 9},
    {kMain, "LblResult", Kind::kLabel, 9},
    {kMain, "TxtReport", Kind::kTextBox, 9},
    {kMain, "LblLink_vexacd", Kind::kLink, 9},
    {kMain, "LblLink_cdshell", Kind::kLink, 9},
    {kMain, "LblLink_Third", Kind::kLink, 9},
    {kMain, "LblMsg1", Kind::kLabel, 10},
    {kMain, "LblMsg2", Kind::kLabel, 10},
    {kMain, "LblMsg3", Kind::kLabel, 10},
    {kMain, "LblMsg4", Kind::kLabel, 10},
    {kMain, "LblMsg5", Kind::kLabel, 10},
    {kMain, "LblRight1", Kind::kLabel, 10},
    {kMain, "LblRight2", Kind::kLabel, 10},
    {kMain, "LblRight3", Kind::kLabel, 10},
    {kMain, "LblRight4", Kind::kLabel, 10},
    {kMain, "LblRight5", Kind::kLabel, 10},
    {kMain, "LblWait", Kind::kLabel, 10},
    {kMain, "LblSub_Step", Kind::kLabel, 10},
    {kMain, "BarSub_Step", Kind::kProgressBar, 10},
    {kWin2K, "TxtTemplate", Kind::kTextBox},
    {kWin2K, "TxtOwner", Kind::kTextBox},
    {kWin2K, "TxtOrg", Kind::kTextBox},
    {kWin2K, "TxtPCName", Kind::kTextBox},
    {kWin2K, "OptJoinWorkgroup", Kind::kOptionButton},
    {kWin2K, "OptJoinDomain", Kind::kOptionButton},
    {kWin2K, "TxtWorkgroup", Kind::kTextBox},
    {kWin2K, "CmdBrwUnattend", Kind::kCommandButton},
    {kWin2K, "CmdOK", Kind::kCommandButton},
    {kWin2K, "CmdCancel", Kind::kCommandButton},
    {kWin2K, "DlgOpen", Kind::kFileDialog},
    {kWin9x, "TxtOwner", Kind::kTextBox},
    {kWin9x, "TxtOrg", Kind::kTextBox},
    {kWin9x, "TxtPCName", Kind::kTextBox},
    {kWin9x, "TxtWorkgroup", Kind::kTextBox},
    {kWin9x, "TxtOSType", Kind::kTextBox},
    {kWin9x, "CmdOK", Kind::kCommandButton},
    {kWin9x, "CmdCancel", Kind::kCommandButton},
};

const std::type_info& TypeOf(Kind kind) {
  switch (kind) {
    case Kind::kCheckBox:
      return typeid(CheckBox);
    case Kind::kTextBox:
      return typeid(TextBox);
    case Kind::kCommandButton:
      return typeid(CommandButton);
    case Kind::kLabel:
      return typeid(Label);
    case Kind::kLink:
      return typeid(Link);
    case Kind::kFrame:
      return typeid(Frame);
    case Kind::kOptionButton:
      return typeid(OptionButton);
    case Kind::kProgressBar:
      return typeid(ProgressBar);
    case Kind::kFileDialog:
      return typeid(FileDialog);
    case Kind::kPicture:
      return typeid(Picture);
  }
  return typeid(void);
}

// The page that contains the control, directly or in a frame.
int PageOf(const Control& control) {
  const Control* place = &control;
  while (place->container() != nullptr && place->index() < 0) place = place->container();
  return place->index();
}

// The text of a control; null for a control without one.
const std::string* TextOf(const Control& control) {
  if (const auto* captioned = dynamic_cast<const Captioned*>(&control)) return &captioned->caption.get();
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return &box->text.get();
  return nullptr;
}

class CaptionsTest : public ::testing::Test {
 protected:
  // The control with exactly this name, in this letter case; null when there is none.
  Control* Find(std::string_view window, std::string_view name) {
    for (Form* form : windows_.All()) {
      Control* const control = form->name() == window ? form->Find(name) : nullptr;
      if (control != nullptr && control->name() == name) return control;
    }
    return nullptr;
  }

  Windows windows_;
};

TEST_F(CaptionsTest, EveryText_IsTheOneOfTheDesign) {
  for (const TextRow& row : kTexts) {
    const Control* const control = Find(row.window, row.control);
    ASSERT_NE(control, nullptr) << row.window << '.' << row.control;
    ASSERT_NE(TextOf(*control), nullptr) << row.window << '.' << row.control;
    EXPECT_EQ(*TextOf(*control), row.text) << row.window << '.' << row.control;
  }
}

TEST_F(CaptionsTest, ControlsThatAreFilledLater_StartEmpty) {
  for (const auto& [window, name] : kStartEmpty) {
    const Control* const control = Find(window, name);
    ASSERT_NE(control, nullptr) << window << '.' << name;
    ASSERT_NE(TextOf(*control), nullptr) << window << '.' << name;
    EXPECT_EQ(*TextOf(*control), "") << window << '.' << name;
  }
  for (const Frame& page : windows_.main.FraMain) EXPECT_EQ(page.caption.get(), "") << page.index();
}

TEST_F(CaptionsTest, EveryControlWithAText_StandsInOneOfTheTables) {
  for (const Form* form : windows_.All()) {
    for (const Control* control : form->controls()) {
      if (TextOf(*control) == nullptr) continue;
      const auto is_it = [&](const char* window, const char* name) {
        return form->name() == window && control->name() == name;
      };
      const auto rows = std::count_if(std::begin(kTexts), std::end(kTexts),
                                      [&](const TextRow& row) { return is_it(row.window, row.control); });
      const auto empty = std::count_if(std::begin(kStartEmpty), std::end(kStartEmpty),
                                       [&](const auto& entry) { return is_it(entry.first, entry.second); });
      EXPECT_EQ(rows + empty, 1) << form->name() << '.' << control->name();
    }
  }
}

TEST_F(CaptionsTest, NamedControls_AreOfTheirKindAndOnTheirPage) {
  for (const KindRow& row : kNamedControls) {
    const Control* const control = Find(row.window, row.control);
    ASSERT_NE(control, nullptr) << row.window << '.' << row.control;
    EXPECT_EQ(typeid(*control), TypeOf(row.kind)) << row.window << '.' << row.control;
    EXPECT_EQ(PageOf(*control), row.page) << row.window << '.' << row.control;
  }
}

TEST_F(CaptionsTest, Pages_AreElevenFramesOfOneName) {
  for (int page = 0; page < 11; ++page) {
    const Control* const frame = windows_.main.Find("FraMain", page);
    ASSERT_NE(frame, nullptr) << page;
    EXPECT_EQ(typeid(*frame), typeid(Frame)) << page;
  }
  EXPECT_EQ(windows_.main.Find("FraMain", 11), nullptr);
}

TEST_F(CaptionsTest, ServicePackAndHotfixes_StandOnTheirFrames) {
  for (const char* name : {"LblSP", "TxtSP_exe", "CmdBrw_spexe"}) {
    EXPECT_EQ(Find(kMain, name)->container(), Find(kMain, "FraSP_Loc")) << name;
  }
  for (const char* name : {"Cmd_Sel_hotfixes", "LblHotNum"}) {
    EXPECT_EQ(Find(kMain, name)->container(), Find(kMain, "FraHotfix")) << name;
  }
}

TEST_F(CaptionsTest, Windows_HaveTheirCaptions) {
  constexpr TextRow kWindows[] = {{kMain, "", "Vexa Discwright"},
                                  {kWin2K, "", "Windows 2K/XP/2003 Installation Info"},
                                  {kWin9x, "", "Windows 9x Installation Info"}};
  const std::array<Form*, 3> forms = windows_.All();
  for (std::size_t i = 0; i < forms.size(); ++i) {
    EXPECT_EQ(forms[i]->name(), kWindows[i].window);
    EXPECT_EQ(forms[i]->caption.get(), kWindows[i].text);
  }
}

TEST_F(CaptionsTest, Headings_AreInTheOrderOfThePages) {
  constexpr const char* kHeadings[] = {"  Welcome to The Vexa Discwright v2.0",
                                       "  Select the Contents of the CD",
                                       "  Add Windows 2000/XP/2003 Setup (1)",
                                       "  Add Windows 2000/XP/2003 Setup (2)",
                                       "  Add Windows 98/98SE/Me Setup",
                                       "  Advanced Tools",
                                       "  Vexa Utilities / Additional Files",
                                       "  Specify ISO File Options",
                                       "  Ready to create ISO file",
                                       "  Operation completed successfully",
                                       "  Please Wait ... Creating the ISO file"};
  for (std::size_t page = 0; page < std::size(kHeadings); ++page) {
    const Label& heading = windows_.main.Heading(page);
    EXPECT_EQ(heading.caption.get(), kHeadings[page]);
    EXPECT_EQ(PageOf(heading), static_cast<int>(page)) << heading.name();
  }
}

TEST_F(CaptionsTest, FileDialogs_StartWithTheirTexts) {
  const FileDialog& script = windows_.win2k_info.DlgOpen;
  EXPECT_EQ(script.title, "Unattended setup information file");
  EXPECT_EQ(script.file_name, "unattend.txt");
  EXPECT_EQ(script.filter, "Text file (*.txt; *.sif)|*.txt; *.sif");
  // Two buttons share this file dialog. Each of them sets the title when it is pressed.
  const FileDialog& shared = windows_.main.DlgOpen;
  EXPECT_EQ(shared.title + shared.file_name + shared.filter, "");
}

}  // namespace
}  // namespace discwright::forms
