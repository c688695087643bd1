// Copies the setup files of Windows 98/98SE/Me into the workspace.
#include "integration/win9x.h"

#include <string>
#include <utility>
#include <vector>

#include "host/files.h"
#include "host/system.h"
#include "integration/file_operations.h"
#include "settings/key_files.h"
#include "settings/win9x_info.h"
#include "steps/copy_to_tree.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::integration {

namespace {

struct SetupFolder {
  const char* cabinet;
  const char* name;
};

// If a folder has both cabinet files, the last one decides.
constexpr SetupFolder kSetupFolders[] = {{"\\base4.cab", "WIN98"}, {"\\base2.cab", "WINME"}};

std::string SetupFolderName(util::Notes& notes, const std::string& Source) {
  std::string name = "WINSETUP";
  std::vector<std::pair<const SetupFolder*, host::Status>> not_opened;
  for (const SetupFolder& folder : kSetupFolders) {
    host::Status readable = host::CheckReadable(Source + folder.cabinet);
    if (readable.ok()) {
      name = folder.name;
    } else if (readable.error != host::ErrorClass::kNotFound) {
      not_opened.emplace_back(&folder, std::move(readable));
    }
  }
  for (const auto& [folder, status] : not_opened) {
    const std::string what =
        "could not be opened, so the setup files are in the folder " + name + " of the CD and not in " + folder->name;
    notes.Check(status, Source + folder->cabinet, what);
  }
  return name;
}

bool CopySetupFiles(steps::Context& context, const std::string& Source, const std::string& target) {
  context.main().LblSub_Step.caption = "Copying Windows 9x Setup Files";
  if (!util::FolderExists(target) && !context.notes.Check(host::MakeFolders(target), target, "could not be created")) {
    return false;
  }
  return steps::CopyToTree(context, Source, target, util::CopiedNames::kAsOnDisc);
}

bool WriteAnswers(steps::Context& context, const std::string& target) {
  settings::FillKeyFile(context.notes, {.AddInfo_toWin9xSetup = true, .AddInfo_toWin2KSetup = true});
  return settings::FillSetupDataFromKeyFileToMSBatch(context.notes, util::PathOf(util::Item::kBuildKeyFile),
                                                     target + "\\MSBATCH.INF");
}

}  // namespace

void AddWin9x(steps::Context& context, const std::string& Source, bool AddInfo_toMSBatch) {
  const std::string target = util::PathOf(util::Item::kWorkspace) + "\\" + SetupFolderName(context.notes, Source);
  const bool complete =
      CopySetupFiles(context, Source, target) && (!AddInfo_toMSBatch || WriteAnswers(context, target));
  if (!complete) HaltIntegration(context, "Windows 98/Me installation");
}

}  // namespace discwright::integration
