// Resetting and removing the workspace.
#include "pipeline/workspace.h"

#include "host/files.h"
#include "host/system.h"
#include "integration/advanced_tools.h"
#include "integration/step.h"
#include "settings/key_files.h"
#include "util/copy.h"
#include "util/paths.h"

namespace discwright::pipeline {

void Prepare_CDDir(util::Context& context) {
  forms::FrmDiscwright& main = context.main();
  const std::string root = integration::WorkspaceRoot();
  // What a build that was halted has left.
  for (const std::string& folder : {root, integration::StagingFolder()}) {
    if (util::FolderExists(folder)) util::DelTree(folder, &context.notes);
  }
  // A copy that failed has noted what is missing; the build goes on with what the workspace then holds.
  util::CopyPathWithProgress(context, host::ProgramFolder() + "\\files\\vexacd", root, main.LblSub_Step,
                             main.BarSub_Step);
}

void CleanSession(util::Context& context) {
  const std::string root = integration::WorkspaceRoot();
  if (util::FolderExists(root)) util::DelTree(root, &context.notes);
  const std::string key_file = host::ProgramFolder() + settings::kWorkingKeyFile;
  if (util::FileExists(key_file)) context.notes.Check(host::RemoveFile(key_file), key_file, "could not be deleted");
}

}  // namespace discwright::pipeline
