// Marks the folders that this program makes, and looks for the marks before it deletes them.
#include "util/emptied_folders.h"

#include <array>

#include "base/paths.h"
#include "host/files.h"
#include "host/folder_facts.h"
#include "host/names.h"
#include "util/paths.h"

namespace discwright::util {

namespace {

struct MarkedFolder {
  Item folder;
  Item mark;
};

constexpr std::array<MarkedFolder, 2> kMarkedFolders{{
    {Item::kWorkspace, Item::kWorkspaceMark},
    {Item::kStaging, Item::kStagingMark},
}};

std::string MarkOf(Item item) { return PathOf(item == Item::kWorkspace ? Item::kWorkspaceMark : Item::kStagingMark); }

std::string TheFolder(const std::string& path) { return "The folder " + host::PathToNative(path); }

// The folder, or one in it, where something is mounted; empty if there is none.
std::string MountPointIn(const std::string& folder) {
  const host::Result<host::FolderFacts> facts = host::FactsOfFolder(folder);
  if (!facts.ok()) return "";
  if (facts.value.is_mount_point) return folder;
  for (const host::Entry& entry : host::ListFolder(folder, "*.*").value) {
    if (entry.kind != host::EntryKind::kFolder || entry.is_link) continue;
    if (std::string found = MountPointIn(base::InFolder(folder, entry.name)); !found.empty()) return found;
  }
  return "";
}

std::string WhyNotKnown(const std::string& folder, const host::FolderFacts& facts, const std::string& mark) {
  const host::Result<std::string> content = host::ReadWholeFile(mark);
  if (content.ok() && content.value == facts.identity) return "";
  const host::Listing listing = host::ListFolder(folder, "*.*");
  if (listing.ok() && listing.value.empty()) return "";
  return TheFolder(folder) +
         " is not known to be made by this program in this place, and a build would delete everything in it.\nMove it "
         "to another place or delete it, and start the build again.";
}

std::string WhyNotEmptied(const MarkedFolder& marked) {
  const std::string folder = PathOf(marked.folder);
  const host::Result<host::FolderFacts> facts = host::FactsOfFolder(folder);
  const host::ErrorClass error = facts.status.error;
  // A link is deleted without its target. A file that has the name of the folder stays.
  if (error == host::ErrorClass::kNotFound || error == host::ErrorClass::kWrongKind) return "";
  if (!facts.ok()) {
    return TheFolder(folder) + " cannot be examined: " + facts.status.cause +
           ".\nRepair it or delete it, and start the build again.";
  }
  if (const std::string mounted = MountPointIn(folder); !mounted.empty()) {
    return TheFolder(mounted) +
           " is a mount point, and a build would delete everything in it.\nUnmount it, and start the build again.";
  }
  return WhyNotKnown(folder, facts.value, PathOf(marked.mark));
}

// The same folder, or the same text where there is no folder yet.
bool IsOneFolder(const std::string& a, const std::string& b) {
  return host::SameFolder(a, b) || host::FoldCase(a) == host::FoldCase(b);
}

}  // namespace

std::string WhyNotEmptied() {
  for (const MarkedFolder& marked : kMarkedFolders) {
    if (std::string why = WhyNotEmptied(marked); !why.empty()) return why;
  }
  return "";
}

host::Status MakeEmptiedFolder(Item item) {
  const std::string folder = PathOf(item);
  host::Status made = host::MakeFolders(folder);
  if (!made.ok()) return made;
  const host::Result<host::FolderFacts> facts = host::FactsOfFolder(folder);
  return facts.ok() ? host::WriteWholeFile(MarkOf(item), facts.value.identity) : facts.status;
}

void DeleteEmptiedFolder(Item item, Notes& notes, const std::function<bool()>& go_on) {
  const std::string folder = PathOf(item);
  if (!DelTree(folder, &notes, go_on)) return;
  const host::Status status = host::RemoveFile(MarkOf(item));
  if (status.error != host::ErrorClass::kNotFound) notes.Check(status, MarkOf(item), "could not be deleted");
}

std::string EmptiedFolderAround(const std::string& path) {
  for (std::string folder = host::FollowedPath(path);;) {
    for (const MarkedFolder& marked : kMarkedFolders) {
      std::string emptied = PathOf(marked.folder);
      if (IsOneFolder(folder, emptied)) return emptied;
    }
    const std::string parent = ParentOf(folder);
    if (parent == folder) return "";
    folder = parent;
  }
}

}  // namespace discwright::util
