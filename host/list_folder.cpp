// Lists folders and describes single paths. Selects the names that match, and marks the links that lead back.
#include <algorithm>

#include "base/paths.h"
#include "base/wildcard.h"
#include "host/files.h"
#include "host/folder_entries.h"
#include "host/names.h"

namespace discwright::host {
namespace {

bool TakesEveryName(std::string_view pattern) { return pattern == "*.*" || pattern == "*"; }

// Whether a link leads to the folder that contains it, or to one above. The folders above are found by the spelling of
// the folder's path, so a link in this path counts as one of them.
bool LeadsBack(const std::string& folder, const std::string& link) {
  for (std::string parent = folder;;) {
    if (SameFolder(parent, link)) return true;
    std::string above = base::ParentFolder(parent);
    if (above == parent) return false;
    parent = std::move(above);
  }
}

std::string Absolute(std::string_view path) { return PathFromNative(PathToNative(path)); }

bool IsLinkToFolder(const Entry& entry) { return entry.is_link && entry.kind == EntryKind::kFolder; }

}  // namespace

Listing ListFolder(std::string_view folder, std::string_view pattern) {
  // The system's own matching is not used, because on Windows it also compares short names: "*.HTM" would find every
  // ".html".
  const std::string folded = FoldCase(pattern);
  Listing listing = ReadEntries(folder, [&](const std::string& name) {
    return TakesEveryName(pattern) || base::MatchesWildcard(FoldCase(name), folded);
  });
  std::sort(listing.value.begin(), listing.value.end(), [](const Entry& a, const Entry& b) { return a.name < b.name; });
  std::string absolute;  // set when the first link is found
  for (Entry& entry : listing.value) {
    if (!IsLinkToFolder(entry)) continue;
    if (absolute.empty()) absolute = Absolute(folder);
    entry.loops = LeadsBack(absolute, base::InFolder(absolute, entry.name));
  }
  return listing;
}

Result<Entry> Look(std::string_view path) {
  Result<Entry> entry = ReadEntry(path);
  if (!entry.ok()) return entry;
  if (!entry.value.problem.ok()) return entry.value.problem;
  if (entry.value.broken) {
    return Status::Failure(ErrorClass::kNotFound, "it is a link whose target is missing");
  }
  if (IsLinkToFolder(entry.value)) {
    const std::string link = Absolute(path);
    entry.value.loops = LeadsBack(base::ParentFolder(link), link);
  }
  return entry;
}

}  // namespace discwright::host
