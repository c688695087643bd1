// Compares the names in two folder trees.
#include "integration/replaced_files.h"

#include <cstddef>
#include <map>
#include <vector>

#include "host/files.h"
#include "host/names.h"
#include "util/paths.h"

namespace discwright::integration {

namespace {

constexpr std::size_t kMostRemarks = 20;

// Only folders that exist in both trees are listed, so this is quick even for large trees.
void FindReplaced(steps::Context& context, const std::string& source, const std::string& destination,
                  std::vector<std::string>& replaced) {
  std::map<std::string, host::Entry> existing;  // by name without letter case
  for (const host::Entry& entry : host::ListFolder(destination, "*.*").value) {
    existing.emplace(host::FoldCase(entry.name), entry);
  }
  if (existing.empty()) return;
  for (const host::Entry& entry : host::ListFolder(source, "*.*").value) {
    context.user.DoEvents(0);
    if (context.main().CancelCopy) return;
    const auto found = existing.find(host::FoldCase(entry.name));
    if (found == existing.end() || found->second.kind != entry.kind || entry.loops) continue;
    if (entry.kind == host::EntryKind::kFile) {
      replaced.push_back(source + entry.name);
    } else if (entry.kind == host::EntryKind::kFolder) {
      FindReplaced(context, source + entry.name + "\\", destination + found->second.name + "\\", replaced);
    }
  }
}

}  // namespace

void RemarkReplacedFiles(steps::Context& context, const std::string& source, const std::string& destination) {
  std::string from = source;
  std::string to = destination;
  util::AddBackslash(from);
  util::AddBackslash(to);
  std::vector<std::string> replaced;
  FindReplaced(context, from, to, replaced);
  for (std::size_t i = 0; i < replaced.size(); ++i) {
    if (i == kMostRemarks) {
      context.notes.Remark(source, std::to_string(replaced.size() - i) +
                                       " more files in this folder replace files of the same name on the CD");
      return;
    }
    context.notes.Remark(replaced[i], "replaces the file of the same name that is already on the CD");
  }
}

}  // namespace discwright::integration
