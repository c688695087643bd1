// Makes the workspace before a build, and deletes it afterwards.
#include "pipeline/workspace.h"

#include "host/files.h"
#include "host/system.h"
#include "steps/copy_to_tree.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

// Returns false when the build has been cancelled meanwhile.
bool DeleteFolder(steps::Context& context, const std::string& folder) {
  if (!util::FolderExists(folder)) return true;
  util::DelTree(folder, &context.notes, [&context] { return context.GoOn(); });
  return !context.main().CancelCopy;
}

}  // namespace

void Prepare_CDDir(steps::Context& context) {
  const std::string root = util::PathOf(util::Item::kWorkspace);
  // A build that was halted leaves both folders behind.
  for (const std::string& folder : {root, util::PathOf(util::Item::kStaging)}) {
    if (!DeleteFolder(context, folder)) return;
  }
  // If the copy fails, it has noted the missing files. The build goes on with the files that were copied. Kept as it
  // has always been.
  steps::CopyToTree(context, util::PathOf(util::Item::kTemplateTree), root);
}

void CleanSession(steps::Context& context) {
  if (!DeleteFolder(context, util::PathOf(util::Item::kWorkspace))) return;
  const std::string key_file = util::PathOf(util::Item::kWorkingKeyFile);
  if (util::FileExists(key_file)) context.notes.Check(host::RemoveFile(key_file), key_file, "could not be deleted");
}

}  // namespace discwright::pipeline
