// Copies the utilities folder and the additional files into the workspace.
#include "integration/vexa_files.h"

#include <string>

#include "host/files.h"
#include "integration/file_operations.h"
#include "integration/replaced_files.h"
#include "steps/copy_to_tree.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::integration {

namespace {

bool CopyUtilities(steps::Context& context, std::string_view Utils_Loc) {
  context.main().LblSub_Step.caption = "Copying Vexa Utilities";
  const std::string destination = util::PathOf(util::Item::kWorkspace) + "\\vexa";
  if (!util::FolderExists(destination) &&
      !context.notes.Check(host::MakeFolders(destination), destination, "could not be created")) {
    return false;
  }
  return steps::CopyToTree(context, Utils_Loc, destination);
}

bool CopyAdditionalFiles(steps::Context& context, const std::string& AddFiles_Loc) {
  context.main().LblSub_Step.caption = "Copying Additional Files";
  RemarkReplacedFiles(context, AddFiles_Loc, util::PathOf(util::Item::kWorkspace));
  return steps::CopyToTree(context, AddFiles_Loc, util::PathOf(util::Item::kWorkspace));
}

}  // namespace

void AddVexa_Files(steps::Context& context, const FileChoices& choices) {
  const bool complete = (!choices.AddUtils || CopyUtilities(context, choices.Utils_Loc)) &&
                        (!choices.AddAddFiles || CopyAdditionalFiles(context, choices.AddFiles_Loc));
  // The text names the utilities even if the additional files have failed. It is kept because users and documents know
  // it.
  if (!complete) HaltIntegration(context, "Vexa Utilities");
}

}  // namespace discwright::integration
