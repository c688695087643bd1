// Makes the text of the summary from a table of its sections and lines.
#include "wizard/summary.h"

#include <iomanip>
#include <span>
#include <sstream>

#include "host/system.h"
#include "util/paths.h"

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;

constexpr const char* kLineEnd = "\r\n";

std::string YesNo(const forms::CheckBox& box) { return box.checked() ? "True" : "False"; }
std::string Plain(const forms::TextBox& box) { return util::Trim(box.text.get()); }
std::string Location(const forms::TextBox& box) { return util::Quoted(box.text.get()); }

struct Line {
  const char* label;
  std::string (*value)(const FrmDiscwright& main);
};

struct Section {
  const char* heading;
  std::span<const Line> lines;
  forms::CheckBox FrmDiscwright::*content = nullptr;  // the section is listed only if this is checked; null: always
};

// The labels resemble captions of the pages, but they are not the same texts. They are therefore written out here.
constexpr Line kContents[] = {
    {"Vexa Boot Disks (Vexa Software - Vexa Net) :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkGet_Vexadisks); }},
    {"Microsoft Windows 2000/XP/2003 Setup Files :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkGet_Win2k); }},
    {"Microsoft Windows 98/98SE/Me Setup Files :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkGet_Win9x); }},
    {"Advanced Tools :  ", [](const FrmDiscwright& main) { return YesNo(main.ChkGet_Advtools); }},
};

constexpr Line kIsoOptions[] = {
    {"Save the generated ISO file to :  ", [](const FrmDiscwright& main) { return Plain(main.TxtISOLoc); }},
    {"Clean Session's temporary files after completing :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkCleanSession); }},
    {"Password Protect the created CD :  ", [](const FrmDiscwright& main) { return YesNo(main.ChkPassProtect); }},
};

constexpr Line kBootDiskOptions[] = {
    {"Use the Linkwell Plus disk for Network Access :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkGet_Vexanetplus); }},
    {"Accept default list of Network drivers :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkSelectDrivers); }},
};

constexpr Line kWin2KDetails[] = {
    {"Location of Windows Setup Files :  ", [](const FrmDiscwright& main) { return Location(main.Txt_i386_Loc); }},
    {"Integrate Service Pack :  ", [](const FrmDiscwright& main) { return YesNo(main.ChkSlipstream); }},
    {"Location of Service Pack exe file :  ", [](const FrmDiscwright& main) { return Location(main.TxtSP_exe); }},
    {"Store this info in the Vexa Win2K Setup Assistant :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkWin2KInfo_Assis); }},
    {"Store this info in the Windows 2000/XP Installation :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkWin2KInfo_Unattend); }},
    {"Remove Extra Languages Files :  ", [](const FrmDiscwright& main) { return YesNo(main.ChkDelTree_Lang); }},
};

constexpr Line kWin9xDetails[] = {
    {"Location of Windows Setup Files :  ", [](const FrmDiscwright& main) { return Location(main.TxtWin9x_Loc); }},
    {"Store this info in the Vexa Setup Assistant :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkWin9xInfo_Assis); }},
    {"Store this info in the Windows Installation :  ",
     [](const FrmDiscwright& main) { return YesNo(main.ChkWin9xInfo_MSBatch); }},
};

constexpr Line kAdvancedTools[] = {
    {"ERD Commander 2002/2003 Location :  ", [](const FrmDiscwright& main) { return Location(main.TxtERDC); }},
    {"O&O BlueCon XXL Pro Location :  ", [](const FrmDiscwright& main) { return Location(main.TxtBCon); }},
};

constexpr Line kUtilities[] = {
    {"Location of the Vexa Utilities :  ", [](const FrmDiscwright& main) { return Location(main.TxtUtils_Loc); }},
    {"Location of the Additional Files Folder :  ",
     [](const FrmDiscwright& main) { return Location(main.TxtAddFiles_Loc); }},
};

constexpr Section kSections[] = {
    {"[Contents of the CD]", kContents},
    {"[ISO File Options]", kIsoOptions},
    {"[BootDisk Images Options]", kBootDiskOptions},
    {"[Windows 2000/XP/2003 Details]", kWin2KDetails, &FrmDiscwright::ChkGet_Win2k},
    {"[Windows 98/98SE/Me Details]", kWin9xDetails, &FrmDiscwright::ChkGet_Win9x},
    {"[Advanced Tools]", kAdvancedTools, &FrmDiscwright::ChkGet_Advtools},
    {"[Vexa Utilities / Additional Files]", kUtilities},
};

// An example is "Sun 11, 15, 2026": the month comes before the day. This is kept as it has always been.
std::string DateText(const host::Date& date) {
  std::ostringstream text;
  text << date.weekday << std::setfill('0') << ' ' << std::setw(2) << date.month << ", " << std::setw(2) << date.day
       << ", " << std::setw(4) << date.year;
  return text.str();
}

std::string HeaderText() {
  std::string text = "Review you options and Settings below...";
  text += kLineEnd;
  text += "Press Back if there is any option you need to change...";
  text += kLineEnd;
  text += kLineEnd;
  return text + "Generated at : " + DateText(host::Today()) + kLineEnd;
}

std::string SectionText(const FrmDiscwright& main, const Section& section) {
  std::string text = section.heading;
  text += kLineEnd;
  for (const Line& line : section.lines) text += line.label + line.value(main) + kLineEnd;
  return text;
}

}  // namespace

// The last line also gets a line end.
std::string GenerateSummery(const FrmDiscwright& main) {
  std::string text = HeaderText();
  for (const Section& section : kSections) {
    if (section.content != nullptr && !(main.*section.content).checked()) continue;
    text += kLineEnd;
    text += kLineEnd;
    text += SectionText(main, section);
  }
  return text;
}

}  // namespace discwright::wizard
