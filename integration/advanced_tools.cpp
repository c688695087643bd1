// Puts the recovery tools onto the CD.
#include "integration/advanced_tools.h"

#include <map>
#include <optional>
#include <span>

#include "host/files.h"
#include "host/system.h"
#include "integration/file_operations.h"
#include "integration/patching.h"
#include "steps/copy_to_tree.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::integration {

namespace {

using util::Item;

constexpr const char* kLoader = "\\I386\\SETUPLDR.BIN";  // below the staging folder
constexpr const char* kScript = "\\I386\\TXTSETUP.SIF";

struct Patch {
  Item folder;
  const char* file;  // below the folder
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

// A loader that names its folder in upper case only stays as it is, unlike that of ERD Commander: meant.
constexpr Patch kBConPatches[] = {
    {Item::kStaging, kLoader, "i386", "oobc"},
    {Item::kStaging, kScript, "i386", "oobc"},
    {Item::kWorkspace, "\\boot\\images\\oobc.bin", "I386", "OOBC"},
};

constexpr Tool kErdC = {"ERD Commander", "Adding ERD Commander 2002/2003 Files", "erdc.bin", "\\ERDC", kErdCPatches};
constexpr Tool kBCon = {"O&O BlueCon", "Adding O&&O BlueCon XXL Files", "oobc.bin", "\\OOBC", kBConPatches};

// What no patch has reached still names I386, or is not there: the step goes on, and the CD will not do what was meant.
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
    context.notes.Add(file, host::Look(file) ? "was not given the new name of its folder: on the CD " + name +
                                                   " may find the files of Windows Setup instead"
                                             : "is missing, and " + name + " cannot be started from the CD");
  }
}

std::string Reason(const std::string& answer) { return answer.empty() ? "" : " (" + answer + ")"; }

bool AddTool(steps::Context& context, const Tool& tool, const std::string& location) {
  forms::FrmDiscwright& main = context.main();
  main.LblSub_Step.caption = tool.caption;
  main.LblSub_Step.Refresh();
  CopyBootSector(context, tool.boot_sector);
  if (!steps::CopyToTree(context, location, util::PathOf(Item::kStaging), util::CopiedNames::kAsOnDisc)) return false;
  PatchFolderName(context, tool);
  const std::string setup_folder = util::PathOf(Item::kStaging) + "\\I386";
  const std::string answer = RenameWithShell(main.window, setup_folder, util::PathOf(Item::kStaging) + tool.folder, "");
  if (answer.empty()) return true;
  context.notes.Add(setup_folder, std::string("could not be renamed to ")
                                      .append(tool.folder + 1)
                                      .append(Reason(answer))
                                      .append(": ")
                                      .append(tool.name)
                                      .append(" cannot be started from the CD, and its files may have replaced those "
                                              "of Windows Setup in I386"));
  return true;
}

// One name after the other: some shells leave a folder behind, without a word, when the destination has one of its
// name, and some stop at a file whose place a folder has.
void MoveWhatIsLeft(steps::Context& context, const std::string& from, const std::string& to) {
  for (const host::Entry& left : host::ListFolder(from, "*.*").value) {
    const std::string source = from + "\\" + left.name;
    const std::optional<host::Entry> there = host::Look(to + "\\" + left.name);
    if (there && there->kind != left.kind) continue;
    if (there && left.kind == host::EntryKind::kFolder) {
      MoveWhatIsLeft(context, source, to + "\\" + left.name);
      host::RemoveEmptyFolder(source);  // stays where something is left in it
    } else {
      MoveWithShell(context.main().window, source, to, 0, "");
    }
  }
}

// What is left goes with the staging folder, whatever the shell's answer was.
void MoveToTree(steps::Context& context) {
  const std::string answer = MoveWithShell(context.main().window, util::PathOf(Item::kStaging) + "\\*.*",
                                           util::PathOf(Item::kWorkspace), 0, "");
  if (answer != "Aborted") MoveWhatIsLeft(context, util::PathOf(Item::kStaging), util::PathOf(Item::kWorkspace));
  for (const host::Entry& left : host::ListFolder(util::PathOf(Item::kStaging), "*.*").value) {
    context.notes.Add(util::PathOf(Item::kStaging) + "\\" + left.name,
                      "could not be moved onto the CD" + Reason(answer));
  }
  util::DelTree(util::PathOf(Item::kStaging), &context.notes);
}

}  // namespace

void AddAdvTools(steps::Context& context, const ToolChoices& choices) {
  if (!choices.GetErdC && !choices.GetBCon) return;
  if ((choices.GetErdC && !AddTool(context, kErdC, choices.ErdCLoc)) ||
      (choices.GetBCon && !AddTool(context, kBCon, choices.BConLoc))) {
    // Users and their documents know this text. It names Windows Setup although a tool has failed, and is kept.
    HaltIntegration(context, "Windows 2000/XP installation");
    return;
  }
  MoveToTree(context);
}

}  // namespace discwright::integration
