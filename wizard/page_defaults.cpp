// The proposed locations as rows.
#include "wizard/page_defaults.h"

#include <string>

#include "host/desktop.h"
#include "host/system.h"
#include "integration/source_identification.h"
#include "util/paths.h"
#include "wizard/pages.h"

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;

// What is done with the first optical drive when its folder becomes a page's default.
using Afterwards = void (*)(FrmDiscwright& main, const std::string& drive);

struct DefaultLocation {
  int page;                                // the page being left
  forms::CheckBox FrmDiscwright::*choice;  // null: whatever is chosen
  forms::TextBox FrmDiscwright::*location;
  std::string (*root)();
  const char* suffix;
  Afterwards afterwards = nullptr;
};

// Without an optical drive the first four are "\I386", "\WIN98", "\" and "\": their pages' checks refuse those.
constexpr DefaultLocation kDefaultLocations[] = {
    {kContentsPage, &FrmDiscwright::ChkGet_Win2k, &FrmDiscwright::Txt_i386_Loc, util::FirstCDROMDrive, "\\I386",
     integration::ShowWinVer},
    {kWin2KOptionsPage, &FrmDiscwright::ChkGet_Win9x, &FrmDiscwright::TxtWin9x_Loc, util::FirstCDROMDrive, "\\WIN98"},
    {kWin9xPage, &FrmDiscwright::ChkGet_Advtools, &FrmDiscwright::TxtERDC, util::FirstCDROMDrive, "\\"},
    {kWin9xPage, &FrmDiscwright::ChkGet_Advtools, &FrmDiscwright::TxtBCon, util::FirstCDROMDrive, "\\"},
    {kAdvtoolsPage, nullptr, &FrmDiscwright::TxtUtils_Loc, host::ProgramFolder, "\\vexa_utilities"},
    {kAdvtoolsPage, nullptr, &FrmDiscwright::TxtAddFiles_Loc, host::ProgramFolder, "\\Additional Files"},
};

}  // namespace

void FillStartDefaults(FrmDiscwright& main) {
  std::string home = host::HomeFolder();
  if (home.empty()) return;
  util::AddBackslash(home);
  main.TxtISOLoc.text = util::AsTyped(home + "vexacd.iso");
  main.TxtSP_exe.text = "";
}

void FillDefaults(FrmDiscwright& main, int page) {
  for (const DefaultLocation& row : kDefaultLocations) {
    forms::TextBox& location = main.*row.location;
    const bool chosen = row.choice == nullptr || (main.*row.choice).checked();
    if (row.page != page || !chosen || !location.text.get().empty()) continue;
    const std::string root = row.root();
    location.text = root + row.suffix;
    if (row.afterwards != nullptr) row.afterwards(main, root);
  }
}

}  // namespace discwright::wizard
