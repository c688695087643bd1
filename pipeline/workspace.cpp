// Resetting and removing the workspace.
#include "pipeline/workspace.h"

#include "host/files.h"
#include "host/system.h"
#include "steps/copy_to_tree.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

void Prepare_CDDir(steps::Context& context) {
  const std::string root = util::PathOf(util::Item::kWorkspace);
  // What a build that was halted has left.
  for (const std::string& folder : {root, util::PathOf(util::Item::kStaging)}) {
    if (util::FolderExists(folder)) util::DelTree(folder, &context.notes);
  }
  // A copy that failed has noted what is missing; the build goes on with what the workspace then holds.
  steps::CopyToTree(context, util::PathOf(util::Item::kTemplateTree), root);
}

void CleanSession(steps::Context& context) {
  const std::string root = util::PathOf(util::Item::kWorkspace);
  if (util::FolderExists(root)) util::DelTree(root, &context.notes);
  const std::string key_file = util::PathOf(util::Item::kWorkingKeyFile);
  if (util::FileExists(key_file)) context.notes.Check(host::RemoveFile(key_file), key_file, "could not be deleted");
}

}  // namespace discwright::pipeline
