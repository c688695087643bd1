// Fills in the default locations from a table.
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

// A default location is `root` followed by `suffix`.
struct DefaultLocation {
  int page;                                // filled in when this page is left
  forms::CheckBox FrmDiscwright::*choice;  // filled in only if this box is checked; null: always
  forms::TextBox FrmDiscwright::*location;
  std::string (*root)();
  const char* suffix;
  void (*then)(FrmDiscwright& main, const std::string& root) = nullptr;  // called afterwards; null: nothing
};

// Without an optical drive the first four become "\I386", "\WIN98", "\" and "\". The checks of their pages refuse
// these. This is kept as it has always been.
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
    location.text = util::AsTyped(root + row.suffix);
    if (row.then != nullptr) row.then(main, root);
  }
}

}  // namespace discwright::wizard
