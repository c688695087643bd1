// Makes the workspace before a build, and deletes it afterwards.
#include "pipeline/workspace.h"

#include <string>

#include "host/files.h"
#include "host/names.h"
#include "steps/copy_to_tree.h"
#include "util/emptied_folders.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

void HaltWith(steps::Context& context, const std::string& text) {
  context.Halt({text, "Fatal Error", host::MessageIcon::kCritical});
}

// Returns false when the build has been cancelled meanwhile.
bool DeleteFolder(steps::Context& context, util::Item folder) {
  util::DeleteEmptiedFolder(folder, context.notes, [&context] { return context.GoOn(); });
  return !context.main().CancelCopy;
}

}  // namespace

void Prepare_CDDir(steps::Context& context) {
  if (const std::string why = util::WhyNotEmptied(); !why.empty()) {
    HaltWith(context, why);
    return;
  }
  // A build that was halted leaves both folders behind. Nothing is asked first: a folder that cannot be listed is
  // there, too, and its files would come onto the CD.
  if (!DeleteFolder(context, util::Item::kWorkspace) || !DeleteFolder(context, util::Item::kStaging)) return;
  const std::string workspace = util::PathOf(util::Item::kWorkspace);
  if (const host::Status made = util::MakeEmptiedFolder(util::Item::kWorkspace); !made.ok()) {
    HaltWith(context, "The folder " + host::PathToNative(workspace) + " and its mark could not be made: " + made.cause +
                          ".\nMake room for it, or delete what is in its place.");
    return;
  }
  // If the copy fails, it has noted the missing files. The build goes on with the files that were copied. Kept as it
  // has always been.
  steps::CopyToTree(context, util::PathOf(util::Item::kTemplateTree), workspace);
}

void CleanSession(steps::Context& context) {
  if (!DeleteFolder(context, util::Item::kWorkspace)) return;
  const std::string key_file = util::PathOf(util::Item::kWorkingKeyFile);
  util::RemoveIfExists(context.notes, key_file);
}

}  // namespace discwright::pipeline
