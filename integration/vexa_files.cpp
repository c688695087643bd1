// Copies the utilities folder and the additional files onto the CD tree.
#include "integration/vexa_files.h"

#include <string>

#include "host/files.h"
#include "host/system.h"
#include "util/copy.h"
#include "util/paths.h"

namespace discwright::integration {

namespace {

// False only for what ends the build: an ordinary failure of the copy is not looked at, the copy has noted it.
bool CopyToTree(util::Context& context, std::string_view source, const std::string& destination) {
  forms::FrmDiscwright& main = context.main();
  return util::CopyPathWithProgress(context, source, destination, main.LblSub_Step, main.BarSub_Step) !=
         util::CopyEnd::kRuntimeFailure;
}

bool CopyUtilities(util::Context& context, std::string_view Utils_Loc, const std::string& tree) {
  context.main().LblSub_Step.caption = "Copying Vexa Utilities";
  const std::string destination = tree + "\\vexa";
  if (!util::FolderExists(destination) &&
      !context.notes.Check(host::MakeFolders(destination), destination, "could not be created")) {
    return false;
  }
  return CopyToTree(context, Utils_Loc, destination);
}

bool CopyAdditionalFiles(util::Context& context, std::string_view AddFiles_Loc, const std::string& tree) {
  context.main().LblSub_Step.caption = "Copying Additional Files";
  return CopyToTree(context, AddFiles_Loc, tree);
}

}  // namespace

void AddVexa_Files(util::Context& context, bool AddUtils, bool AddAddFiles, std::string_view Utils_Loc,
                   std::string_view AddFiles_Loc) {
  const std::string tree = host::ProgramFolder() + "\\vexacd";
  if ((!AddUtils || CopyUtilities(context, Utils_Loc, tree)) &&
      (!AddAddFiles || CopyAdditionalFiles(context, AddFiles_Loc, tree))) {
    return;
  }
  // The text names the utilities also when the additional files failed. Meant.
  context.user.ShowMessage({"A fatal Error occured while integrating the Vexa Utilities, operation halted",
                            "Fatal Error", host::MessageIcon::kCritical});
  context.CancelApp();
}

}  // namespace discwright::integration
