// Resetting and removing the workspace.
#include "pipeline/workspace.h"

#include "host/files.h"
#include "host/system.h"
#include "settings/key_files.h"
#include "util/copy.h"
#include "util/paths.h"

namespace discwright::pipeline {

std::string WorkspaceRoot() { return host::ProgramFolder() + "\\vexacd"; }

void Prepare_CDDir(util::Context& context) {
  forms::FrmDiscwright& main = context.main();
  const std::string root = WorkspaceRoot();
  if (util::FolderExists(root)) util::DelTree(root, &context.notes);
  // A copy that failed has noted what is missing; the build goes on with what the workspace then holds.
  util::CopyPathWithProgress(context, host::ProgramFolder() + "\\files\\vexacd", root, main.LblSub_Step,
                             main.BarSub_Step);
}

void CleanSession(util::Context& context) {
  const std::string root = WorkspaceRoot();
  if (util::FolderExists(root)) util::DelTree(root, &context.notes);
  const std::string key_file = host::ProgramFolder() + settings::kWorkingKeyFile;
  if (util::FileExists(key_file)) context.notes.Check(host::RemoveFile(key_file), key_file, "could not be deleted");
}

}  // namespace discwright::pipeline
