// Lists folders and looks at single paths: which names match, and which links lead back.
#include <algorithm>

#include "base/paths.h"
#include "base/wildcard.h"
#include "host/files.h"
#include "host/folder_entries.h"
#include "host/names.h"

namespace discwright::host {
namespace {

bool TakesEveryName(std::string_view pattern) { return pattern == "*.*" || pattern == "*"; }

// Whether a link leads to the folder it is in or to one above that, by the way the folder's path is written: a link
// that the path goes through is one of the folders above.
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
  // The system's own matching is not used. On Windows it also takes short names: "*.HTM" would find every ".html".
  const std::string folded = FoldCase(pattern);
  Listing listing = ReadEntries(folder, [&](const std::string& name) {
    return TakesEveryName(pattern) || base::MatchesWildcard(FoldCase(name), folded);
  });
  std::sort(listing.value.begin(), listing.value.end(), [](const Entry& a, const Entry& b) { return a.name < b.name; });
  std::string absolute;  // made when the first link turns up
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
