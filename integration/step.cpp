// Copying onto the CD's tree, and the end of a step that failed.
#include "integration/step.h"

#include "host/system.h"
#include "integration/file_patcher.h"
#include "util/paths.h"

namespace discwright::integration {

std::string WorkspaceRoot() { return host::ProgramFolder() + "\\vexacd"; }

bool CopyToTree(util::Context& context, std::string_view source, std::string_view destination,
                util::CopiedNames names) {
  forms::FrmDiscwright& main = context.main();
  return util::CopyPathWithProgress(context, source, destination, main.LblSub_Step, main.BarSub_Step, names) !=
         util::CopyEnd::kRuntimeFailure;
}

void CopyBootSector(util::Context& context, const std::string& name) {
  const std::string source = host::ProgramFolder() + "\\files\\bootsect\\" + name;
  CopyMatchingFiles(context.notes, source, WorkspaceRoot() + "\\boot\\images\\" + name);
  if (util::FileExists(source)) return;
  context.notes.Add(source, "is missing, and what it starts cannot be started from the CD");
}

void HaltStep(util::Context& context, const std::string& what) {
  context.Halt({"A fatal Error occured while integrating the " + what + ", operation halted", "Fatal Error",
                host::MessageIcon::kCritical});
}

}  // namespace discwright::integration
