// Checks the choices on each page before Next leaves it. A table lists the checks.
#include "wizard/page_checks.h"

#include <algorithm>
#include <array>
#include <string>

#include "host/files.h"
#include "host/names.h"
#include "integration/advanced_tools.h"
#include "util/emptied_folders.h"
#include "util/paths.h"
#include "wizard/causes.h"
#include "wizard/iso_destination.h"
#include "wizard/known_files.h"
#include "wizard/pages.h"

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;
using host::MessageIcon;
using CheckBoxOf = forms::CheckBox FrmDiscwright::*;
using TextBoxOf = forms::TextBox FrmDiscwright::*;

bool IsFile(const std::string& path) { return util::FileExists(path); }
bool IsFolder(const std::string& path) { return util::FolderExists(path); }
bool IsDestination(const std::string& path) { return WhyNoIsoDestination(path).empty(); }

// If all `choices` are checked, `test` must be true for the text of `location` with `suffix` after it.
struct LocationCheck {
  int page;
  std::array<CheckBoxOf, 2> choices;  // an empty place is null
  TextBoxOf location;
  const char* suffix;
  bool (*test)(const std::string& path);
  const char* message;
  std::string (*why)(const std::string& text);  // the sentence that explains the failure below the message
  MessageIcon icon = MessageIcon::kCritical;
};

constexpr LocationCheck kLocationChecks[] = {
    {kWin2KSourcePage,
     {&FrmDiscwright::ChkGet_Win2k},
     &FrmDiscwright::Txt_i386_Loc,
     kWin2KFile,
     IsFile,
     "The selected folder doesn't contain a Windows 2000/XP installation !\r\n"
     "Select your Windows setup source Directory",
     WhyNoWin2KSource},
    {kWin2KSourcePage,
     {&FrmDiscwright::ChkGet_Win2k, &FrmDiscwright::ChkSlipstream},
     &FrmDiscwright::TxtSP_exe,
     "",
     IsFile,
     "The selected Service pack file is not correct !\r\n"
     "Select your Windows Service pack EXE file",
     WhyNoServicePack},
    {kWin9xPage,
     {&FrmDiscwright::ChkGet_Win9x},
     &FrmDiscwright::TxtWin9x_Loc,
     kWin9xFile,
     IsFile,
     "The selected folder doesn't contain a Windows 98/Me installation !\r\n"
     "Select your Windows setup source Directory",
     WhyNoWin9xSource},
    {kAdvtoolsPage,
     {&FrmDiscwright::ChkGet_Advtools, &FrmDiscwright::ChkERDC},
     &FrmDiscwright::TxtERDC,
     kErdCommanderFile,
     IsFile,
     "ERD Commander 2002/2003 doesn't seem to be located in the selected directory\r\n"
     "Select ERD Commader 2002/2003 location",
     WhyNoErdCommander,
     MessageIcon::kExclamation},
    {kAdvtoolsPage,
     {&FrmDiscwright::ChkGet_Advtools, &FrmDiscwright::ChkBCon},
     &FrmDiscwright::TxtBCon,
     kBlueConFiles,
     IsFile,
     "O&O Blue Con XXL doesn't seem to be located in the selected directory\r\n"
     "Select Blue Con XXL location",
     WhyNoBlueCon,
     MessageIcon::kExclamation},
    {kUtilitiesPage,
     {&FrmDiscwright::ChkVexaUtils},
     &FrmDiscwright::TxtUtils_Loc,
     "",
     IsFolder,
     "The Vexa Utilities folder doesn't exist !\r\n"
     "Select a valid Directory",
     WhyNoFolder},
    {kUtilitiesPage,
     {&FrmDiscwright::ChkAddFiles},
     &FrmDiscwright::TxtAddFiles_Loc,
     "",
     IsFolder,
     "The Additional files folder doesn't exist !\r\n"
     "Select a valid Directory",
     WhyNoFolder},
    {kIsoPage,
     {},
     &FrmDiscwright::TxtISOLoc,
     "",
     IsDestination,
     "ISO File destination is not correct, check again",
     WhyNoIsoDestination},
};

void ShowError(steps::Context& context, const std::string& message, MessageIcon icon = MessageIcon::kCritical,
               const std::string& control = "", const std::string& detail = "") {
  context.user.ShowMessage({message, "Error", icon, false, control, detail});
}

bool Applies(const FrmDiscwright& main, const LocationCheck& check) {
  return std::all_of(check.choices.begin(), check.choices.end(),
                     [&](CheckBoxOf choice) { return choice == nullptr || (main.*choice).checked(); });
}

bool Passes(const FrmDiscwright& main, const LocationCheck& check) {
  return !Applies(main, check) || check.test((main.*check.location).text.get() + check.suffix);
}

// A build empties its folders at its start, so a location in one of them would be deleted before it is copied.
bool IsOutsideEmptiedFolders(steps::Context& context, const LocationCheck& check) {
  if (!Applies(context.main(), check)) return true;
  const std::string folder = util::EmptiedFolderAround(util::StripQuotes((context.main().*check.location).text.get()));
  if (folder.empty()) return true;
  ShowError(context,
            "The selected location is in " + host::PathToNative(folder) +
                ", which every build empties !\r\nSelect a location outside of it",
            MessageIcon::kCritical, (context.main().*check.location).name(),
            host::PathToNative((context.main().*check.location).text.get()) + " would be deleted.");
  return false;
}

bool PasswordsMatch(steps::Context& context) {
  FrmDiscwright& main = context.main();
  if (!main.ChkPassProtect.checked() || main.TxtPass1.text.get() == main.TxtPass2.text.get()) return true;
  ShowError(context, "The Passwords don't Match - Reenter them");
  main.TxtPass1.text = "";
  main.TxtPass2.text = "";
  return false;
}

}  // namespace

bool PageIsValid(steps::Context& context, int page) {
  bool valid = page != kIsoPage || PasswordsMatch(context);
  for (const LocationCheck& check : kLocationChecks) {
    if (check.page != page) continue;
    if (!Passes(context.main(), check)) {
      const forms::TextBox& location = context.main().*check.location;
      ShowError(context, check.message, check.icon, location.name(), check.why(location.text.get()));
      valid = false;
    } else if (!IsOutsideEmptiedFolders(context, check)) {
      valid = false;
    }
  }
  return valid;
}

}  // namespace discwright::wizard
