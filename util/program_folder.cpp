// The table of the program folder.
#include "util/program_folder.h"

#include <algorithm>
#include <cstddef>

#include "host/system.h"

namespace discwright::util {

constexpr std::array<FolderItem, static_cast<std::size_t>(Item::kCount)> kProgramFolder{{
    {Item::kTemplateTree, "\\files\\vexacd", "", ""},
    {Item::kBootSectors, "\\files\\bootsect", "", ""},
    {Item::kWin2KTemplate, "\\files\\inf_files\\win2k_template.inf", "", ""},
    {Item::kWin98Template, "\\files\\inf_files\\win98_template.inf", "", ""},
    {Item::kWinMeTemplate, "\\files\\inf_files\\winme_template.inf", "", ""},
    {Item::kCreateDsk, "\\CreateDsk.exe", "", ""},
    {Item::kDfl, "\\dfl.exe", "", ""},
    {Item::kMkisofs, "\\mkisofs.exe", "", ""},
    {Item::kHelpFile, "\\vexacd_builder.chm", "", ""},
    {Item::kHelpTopics, "\\help", "", ""},
    {Item::kInstalledList, "\\installed.list", "WhyNoUsersFolder", ""},
    {Item::kSession, "\\vexacd.ini", "WriteVexaCDINI", ""},
    {Item::kWorkingKeyFile, "\\keyfile2.txt", "FillSetupDataToKeyFile", "CleanSession"},
    {Item::kBuildKeyFile, "\\keyfile.txt", "FillKeyFile", ""},
    {Item::kWriteTest, "\\discwright.tmp", "WhyNotBuiltHere", "WhyNotBuiltHere"},
    {Item::kWorkspace, "\\vexacd", "Prepare_CDDir", "CleanSession"},
    {Item::kWorkspaceMark, "\\vexacd.own", "Prepare_CDDir", "CleanSession"},
    {Item::kStaging, "\\advtemp", "AddAdvTools", "AddAdvTools"},
    {Item::kStagingMark, "\\advtemp.own", "AddAdvTools", "AddAdvTools"},
    {Item::kVexastartImage, "\\vexastart.img", "AddDisks", "AddDisks"},
    {Item::kVexaemmImage, "\\vexaemm.img", "AddDisks", "AddDisks"},
    {Item::kVexawinImage, "\\vexawin.img", "AddDisks", "AddDisks"},
    {Item::kVexalinkwellImage, "\\vexalinkwell.img", "AddDisks", "AddDisks"},
    {Item::kVexanetImage, "\\vexanet.img", "AddDisks", "AddDisks"},
    {Item::kMasteringScript, "\\makecd.bat", "StartMKISOFS", "LaunchApp_ProcessEnded"},
    {Item::kMasteringLog, "\\mkisofs.log", "StartMKISOFS", ""},
}};

namespace {

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kProgramFolder.size(); ++i) {
    if (kProgramFolder[i].item != static_cast<Item>(i)) return false;
  }
  return true;
}
static_assert(IsInOrder());

}  // namespace

std::string PathOf(Item item) {
  return host::ProgramFolder().append(kProgramFolder[static_cast<std::size_t>(item)].path);
}

std::string_view NameInFolder(Item item) { return kProgramFolder[static_cast<std::size_t>(item)].path.substr(1); }

}  // namespace discwright::util
