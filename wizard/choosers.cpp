// Performs the actions of the choosers' buttons, and takes what is dropped onto their fields. Tables say which field
// belongs to which button.
#include "wizard/choosers.h"

#include <algorithm>

#include "host/desktop.h"
#include "host/names.h"
#include "integration/source_identification.h"
#include "util/paths.h"
#include "util/processes.h"

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;
using ButtonOf = forms::CommandButton FrmDiscwright::*;
using TextBoxOf = forms::TextBox FrmDiscwright::*;

// The tag files of a setup CD are in its root, beside the folder I386. If the user has chosen a drive, ParentOf returns
// the drive.
void ShowEdition(FrmDiscwright& main, const std::string& i386) { integration::ShowWinVer(main, util::ParentOf(i386)); }

struct FolderChooser {
  ButtonOf button;
  const char* title;
  TextBoxOf field;
  void (*then)(FrmDiscwright& main, const std::string& chosen) = nullptr;
};

constexpr FolderChooser kFolderChoosers[] = {
    {&FrmDiscwright::CmdBrw_i386_loc, "Select Windows 2000/XP Location", &FrmDiscwright::Txt_i386_Loc, ShowEdition},
    {&FrmDiscwright::CmdBrw_Win9xLoc, "Select Windows 98/Me Location", &FrmDiscwright::TxtWin9x_Loc},
    {&FrmDiscwright::CmdBrw_ERDC, "Select ERD Commander CD Root", &FrmDiscwright::TxtERDC},
    {&FrmDiscwright::CmdBrw_BCon, "Select BlueCon CD Root", &FrmDiscwright::TxtBCon},
    {&FrmDiscwright::CmdBrw_Utils, "Select 'vexa_utilities' folder location", &FrmDiscwright::TxtUtils_Loc},
    {&FrmDiscwright::CmdBrw_AddFiles, "Select 'Additional Files' folder location", &FrmDiscwright::TxtAddFiles_Loc},
};

struct FileChooser {
  ButtonOf button;
  const char* title;
  const char* filter;
  bool must_exist;
  TextBoxOf field;
};

constexpr FileChooser kFileChoosers[] = {
    {&FrmDiscwright::CmdBrw_ISOfile, "Specify the destination ISO file", "CDROM Image (*.iso)|*.iso", false,
     &FrmDiscwright::TxtISOLoc},
    {&FrmDiscwright::CmdBrw_spexe, "Specify the Windows Service pack file", "Executable file (*.exe)|*.exe", true,
     &FrmDiscwright::TxtSP_exe},
};

struct ExploreButton {
  ButtonOf button;
  TextBoxOf field;
};

constexpr ExploreButton kExploreButtons[] = {
    {&FrmDiscwright::CmdExp_Utils, &FrmDiscwright::TxtUtils_Loc},
    {&FrmDiscwright::CmdExp_AddFiles, &FrmDiscwright::TxtAddFiles_Loc},
};

void TakeFolder(steps::Context& context, const FolderChooser& chooser, const std::string& chosen) {
  (context.main().*chooser.field).text = util::AsTyped(chosen);
  if (chooser.then != nullptr) chooser.then(context.main(), chosen);
}

void ChooseFolder(steps::Context& context, const FolderChooser& chooser) {
  const std::string start = StartFolder((context.main().*chooser.field).text.get());
  const std::string chosen = context.user.ChooseFolder(start, chooser.title);
  if (!chosen.empty()) TakeFolder(context, chooser, chosen);
}

void TakeFile(steps::Context& context, const FileChooser& chooser, const std::string& chosen) {
  context.main().DlgOpen.file_name = util::AsTyped(chosen);
  (context.main().*chooser.field).text = context.main().DlgOpen.file_name;
}

void ChooseFile(steps::Context& context, const FileChooser& chooser) {
  forms::FileDialog& dialog = context.main().DlgOpen;
  dialog.title = chooser.title;
  dialog.filter = chooser.filter;
  dialog.file_name = (context.main().*chooser.field).text;
  const std::string chosen =
      context.user.ChooseFile({dialog.title, dialog.filter, dialog.file_name, chooser.must_exist});
  if (!chosen.empty()) TakeFile(context, chooser, chosen);
}

// Waits without a limit until the file manager is ready for input. If it cannot be started, nothing happens.
void Explore(steps::Context& context, const forms::TextBox& field) {
  constexpr int kNoLimit = 0;
  constexpr int kShownNormally = 1;
  util::ShellAndWait(context.programs, host::FileManagerLine(field.text.get()), kNoLimit, true, kShownNormally);
}

bool IsDriveRoot(std::string_view folder) {
  std::string roots;
  for (const std::string& root : host::DriveRoots()) roots += root + '\0';
  return host::FoldCase(roots).find(host::FoldCase(folder)) != std::string::npos;
}

}  // namespace

// A text counts as the root of a drive if it occurs anywhere in the list of the drives' roots, for example "D:" in
// "C:\", "D:\". So do shorter texts such as ":". This is kept as it has always been.
std::string StartFolder(std::string_view text) {
  std::string folder(text);
  if (folder.empty()) folder = host::HomeFolder();
  if (folder.empty()) folder = "C:\\";
  const bool ends_in_separator = util::IsPathSeparator(folder.back());
  if (IsDriveRoot(folder)) {
    if (!ends_in_separator) folder += '\\';
  } else if (ends_in_separator && folder.size() > 1) {
    folder.pop_back();
  }
  return folder;
}

void BindChoosers(steps::Context& context) {
  FrmDiscwright& main = context.main();
  for (const FolderChooser& chooser : kFolderChoosers) {
    (main.*chooser.button).click = [&context, &chooser] { ChooseFolder(context, chooser); };
    (main.*chooser.field).drop_kind = forms::DropKind::kFolder;
    (main.*chooser.field).dropped = [&context, &chooser](const std::string& path) {
      TakeFolder(context, chooser, path);
    };
  }
  for (const FileChooser& chooser : kFileChoosers) {
    (main.*chooser.button).click = [&context, &chooser] { ChooseFile(context, chooser); };
    (main.*chooser.field).drop_kind = forms::DropKind::kFile;
    (main.*chooser.field).dropped = [&context, &chooser](const std::string& path) { TakeFile(context, chooser, path); };
  }
  for (const ExploreButton& explore : kExploreButtons) {
    (main.*explore.button).click = [&context, &field = main.*explore.field] { Explore(context, field); };
  }
  for (forms::Link* link : {&main.LblLink_vexacd, &main.LblLink_cdshell, &main.LblLink_Third}) {
    link->click = [&context, link] { context.user.OpenLink(link->caption.get()); };
  }
}

}  // namespace discwright::wizard
