// Looks for two names in all folders of the workspace.
#include "pipeline/hidden_files.h"

#include <string>

#include "host/files.h"
#include "host/names.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

void NoteHiddenIn(steps::Context& context, const std::string& folder) {
  const std::string loader = util::PathOf(util::Item::kWorkspace) + "\\boot\\" + kBootLoaderName;
  for (const host::Entry& entry : host::ListFolder(folder, "*.*").value) {
    context.user.DoEvents(0);
    if (context.main().CancelCopy) return;
    const std::string path = folder + "\\" + entry.name;
    const bool is_hidden = host::FoldCase(path) != host::FoldCase(loader) &&
                           (entry.name == kBootLoaderName || entry.name == kBootCatalogueName);
    const bool is_folder = entry.kind == host::EntryKind::kFolder;
    if (is_hidden) {
      context.notes.Add(path, std::string("will not be visible on the CD, because the boot files have names like this: "
                                          "rename your ") +
                                  (is_folder ? "folder" : "file") + " and build the CD again");
    } else if (is_folder && !entry.loops) {
      NoteHiddenIn(context, path);
    }
  }
}

}  // namespace

void NoteHiddenFiles(steps::Context& context) { NoteHiddenIn(context, util::PathOf(util::Item::kWorkspace)); }

}  // namespace discwright::pipeline
