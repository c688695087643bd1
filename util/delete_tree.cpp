// Deletes a folder with everything in it.
#include "host/files.h"
#include "host/folder_facts.h"
#include "util/paths.h"

namespace discwright::util {

namespace {

constexpr const char* kNotDeleted = "could not be deleted";

bool Removed(const host::Status& status, const std::string& path, Notes* notes) {
  return notes == nullptr ? status.ok() : notes->Check(status, path, kNotDeleted);
}

bool RemoveFileOrLink(const std::string& path, Notes* notes) {
  host::ClearAttributes(path);
  return Removed(host::RemoveFile(path), path, notes);
}

// What is mounted in a folder is the user's, wherever it comes from.
bool IsMountPoint(const std::string& folder) { return host::FactsOfFolder(folder).value.is_mount_point; }

// The folder is listed once, before anything in it is deleted. So the loop ends even if something cannot be deleted.
bool RemoveTree(const std::string& folder, Notes* notes) {
  if (IsMountPoint(folder)) {
    if (notes != nullptr) notes->Add(folder, "was not deleted: it is a mount point; unmount it");
    return false;
  }
  host::ClearAttributes(folder);
  const host::Listing listing = host::ListFolder(folder, "*.*");
  bool emptied = true;
  for (const host::Entry& entry : listing.value) {
    const std::string path = folder + "\\" + entry.name;
    const bool real_folder = entry.kind == host::EntryKind::kFolder && !entry.is_link;
    emptied = (real_folder ? RemoveTree(path, notes) : RemoveFileOrLink(path, notes)) && emptied;
  }
  const host::Status status = host::RemoveEmptyFolder(folder);
  if (status.ok()) return true;
  // If something in the folder could not be deleted, that has been noted. The folder itself needs no second note.
  if (emptied) Removed(listing.status.ok() ? status : listing.status, folder, notes);
  return false;
}

// With a separator at its end, the path of a link would mean the link's target. The root of a drive needs its
// separator.
std::string WithoutLastSeparator(std::string path) {
  while (path.size() > 1 && IsPathSeparator(path.back()) && path[path.size() - 2] != ':') path.pop_back();
  return path;
}

}  // namespace

bool DelTree(std::string_view path, Notes* notes) {
  if (Trim(path).empty()) return true;
  const std::string folder = WithoutLastSeparator(std::string(path));
  const std::optional<host::Entry> entry = host::Look(folder);
  if (!entry || entry->kind != host::EntryKind::kFolder) return true;
  // Not asked again: a folder that cannot be listed would look like one that is gone.
  return entry->is_link ? RemoveFileOrLink(folder, notes) : RemoveTree(folder, notes);
}

}  // namespace discwright::util
