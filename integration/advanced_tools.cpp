// Copies the recovery tools into the workspace.
#include "integration/advanced_tools.h"

#include <map>
#include <span>

#include "host/files.h"
#include "host/system.h"
#include "integration/file_operations.h"
#include "integration/patching.h"
#include "steps/copy_to_tree.h"
#include "util/emptied_folders.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::integration {

namespace {

using util::Item;

constexpr const char* kLoader = "\\I386\\SETUPLDR.BIN";  // both relative to the staging folder
constexpr const char* kScript = "\\I386\\TXTSETUP.SIF";

struct Patch {
  Item folder;
  const char* file;  // relative to the folder
  const char* find;
  const char* replace;
};

struct Tool {
  const char* name;
  const char* caption;
  const char* boot_sector;
  const char* folder;
  std::span<const Patch> patches;
};

constexpr Patch kErdCPatches[] = {
    {Item::kStaging, kLoader, "i386", "erdc"},
    {Item::kStaging, kLoader, "I386", "erdc"},
    {Item::kStaging, kScript, "i386", "erdc"},
    {Item::kWorkspace, "\\boot\\images\\erdc.bin", "I386", "ERDC"},
};

// Unlike for ERD Commander, a loader that contains the folder name only in upper case is not patched. Kept as it has
// always been; PatchFolderName notes it.
constexpr Patch kBConPatches[] = {
    {Item::kStaging, kLoader, "i386", "oobc"},
    {Item::kStaging, kScript, "i386", "oobc"},
    {Item::kWorkspace, "\\boot\\images\\oobc.bin", "I386", "OOBC"},
};

constexpr Tool kErdC = {"ERD Commander", "Adding ERD Commander 2002/2003 Files", "erdc.bin", "\\ERDC", kErdCPatches};
constexpr Tool kBCon = {"O&O BlueCon", "Adding O&&O BlueCon XXL Files", "oobc.bin", "\\OOBC", kBConPatches};

// Notes every file in which no patch replaced anything: it is missing, or it still contains the name I386.
void PatchFolderName(steps::Context& context, const Tool& tool) {
  std::map<std::string, bool> patched;
  for (const Patch& patch : tool.patches) {
    const std::string file = util::PathOf(patch.folder) + patch.file;
    const bool replaced = PatchBinaryFile(context, file, patch.find, patch.replace);
    patched[file] = patched[file] || replaced;
  }
  for (const auto& [file, replaced] : patched) {
    if (replaced) continue;
    const std::string name = tool.name;
    const bool is_missing = host::Look(file).status.error == host::ErrorClass::kNotFound;
    context.notes.Add(file, is_missing ? "is missing: " + name + " cannot be started from the CD"
                                       : "was not patched to use the new folder name: on the CD, " + name +
                                             " may start with the files of Windows Setup");
  }
}

std::string InParentheses(const std::string& answer) { return answer.empty() ? "" : " (" + answer + ")"; }

bool AddTool(steps::Context& context, const Tool& tool, const std::string& location) {
  forms::FrmDiscwright& main = context.main();
  main.LblSub_Step.caption = tool.caption;
  main.LblSub_Step.Refresh();
  CopyBootSector(context, tool.boot_sector);
  const std::string staging = util::PathOf(Item::kStaging);
  const host::Status made = util::MakeEmptiedFolder(Item::kStaging);
  if (!context.notes.Check(made, staging, "could not be created with its mark")) return false;
  if (!steps::CopyToTree(context, location, staging, util::CopiedNames::kAsOnDisc)) return false;
  PatchFolderName(context, tool);
  const std::string setup_folder = staging + "\\I386";
  const std::string answer = RenameWithShell(main.window, setup_folder, staging + tool.folder, "");
  if (answer.empty()) return true;
  context.notes.Add(setup_folder, std::string("could not be renamed to ")
                                      .append(tool.folder + 1)
                                      .append(InParentheses(answer))
                                      .append(": ")
                                      .append(tool.name)
                                      .append(" cannot be started from the CD, and its files may have replaced those "
                                              "of Windows Setup in I386, or have come into the folder of another tool "
                                              "(ERDC or OOBC)"));
  return true;
}

// Notes a folder of the tools that cannot be listed: what is in it is missing from the CD.
host::Listing ListStaged(steps::Context& context, const std::string& folder) {
  host::Listing listing = host::ListFolder(folder, "*.*");
  context.notes.Check(listing.status, folder, "could not be listed: what is left in it is missing from the CD");
  return listing;
}

// Moves the entries that the shell left in the staging folder, one by one. Some shells silently skip a folder if the
// destination contains a folder of the same name. Others stop at a file whose name a folder in the destination has.
void MoveRemaining(steps::Context& context, const std::string& from, const std::string& to) {
  for (const host::Entry& entry : ListStaged(context, from).value) {
    if (!context.GoOn()) return;
    const std::string source = from + "\\" + entry.name;
    const host::Result<host::Entry> existing = host::Look(to + "\\" + entry.name);
    const bool is_new = existing.status.error == host::ErrorClass::kNotFound;
    // An entry is not moved when it is unknown whether it fits. MoveToTree notes it.
    if (!entry.problem.ok() || (!existing.ok() && !is_new)) continue;
    if (existing.ok() && existing.value.kind != entry.kind) continue;
    if (existing.ok() && entry.kind == host::EntryKind::kFolder) {
      MoveRemaining(context, source, to + "\\" + entry.name);
      host::RemoveEmptyFolder(source);  // fails, as it should, if something could not be moved out of the folder
    } else {
      MoveWithShell(context.main().window, source, to, 0, "");
    }
  }
}

// Entries that could not be moved are noted and then deleted together with the staging folder.
void MoveToTree(steps::Context& context) {
  const std::string answer = MoveWithShell(context.main().window, util::PathOf(Item::kStaging) + "\\*.*",
                                           util::PathOf(Item::kWorkspace), 0, "");
  if (answer != "Aborted") MoveRemaining(context, util::PathOf(Item::kStaging), util::PathOf(Item::kWorkspace));
  // The next build deletes the folder of a cancelled one.
  if (!context.GoOn()) return;
  const std::string staging = util::PathOf(Item::kStaging);
  for (const host::Entry& entry : ListStaged(context, staging).value) {
    context.notes.Add(staging + "\\" + entry.name, "could not be moved onto the CD" + InParentheses(answer));
  }
  util::DeleteEmptiedFolder(Item::kStaging, context.notes, [&context] { return context.GoOn(); });
}

}  // namespace

void AddAdvTools(steps::Context& context, const ToolChoices& choices) {
  if (!choices.GetErdC && !choices.GetBCon) return;
  if ((choices.GetErdC && !AddTool(context, kErdC, choices.ErdCLoc)) ||
      (choices.GetBCon && !AddTool(context, kBCon, choices.BConLoc))) {
    // The text names Windows Setup although a tool has failed. It is kept because users and documents know it.
    HaltIntegration(context, "Windows 2000/XP installation");
    return;
  }
  MoveToTree(context);
}

}  // namespace discwright::integration
