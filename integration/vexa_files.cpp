// Copies the utilities folder and the additional files onto the CD tree.
#include "integration/vexa_files.h"

#include <string>

#include "host/files.h"
#include "integration/step.h"
#include "util/paths.h"

namespace discwright::integration {

namespace {

bool CopyUtilities(util::Context& context, std::string_view Utils_Loc) {
  context.main().LblSub_Step.caption = "Copying Vexa Utilities";
  const std::string destination = WorkspaceRoot() + "\\vexa";
  if (!util::FolderExists(destination) &&
      !context.notes.Check(host::MakeFolders(destination), destination, "could not be created")) {
    return false;
  }
  return CopyToTree(context, Utils_Loc, destination);
}

bool CopyAdditionalFiles(util::Context& context, std::string_view AddFiles_Loc) {
  context.main().LblSub_Step.caption = "Copying Additional Files";
  return CopyToTree(context, AddFiles_Loc, WorkspaceRoot());
}

}  // namespace

void AddVexa_Files(util::Context& context, bool AddUtils, bool AddAddFiles, std::string_view Utils_Loc,
                   std::string_view AddFiles_Loc) {
  const bool complete =
      (!AddUtils || CopyUtilities(context, Utils_Loc)) && (!AddAddFiles || CopyAdditionalFiles(context, AddFiles_Loc));
  // The text names the utilities also when the additional files failed. Meant.
  if (!complete) HaltStep(context, "Vexa Utilities");
}

}  // namespace discwright::integration
