// Deleting a folder with everything under it.
#include "host/files.h"
#include "util/paths.h"

namespace discwright::util {

namespace {

constexpr const char* kNotDeleted = "could not be deleted";

bool Removed(const host::Status& status, const std::string& path, Notes* notes) {
  return notes == nullptr ? status.ok() : notes->Check(status, path, kNotDeleted);
}

bool RemoveLeaf(const std::string& path, Notes* notes) {
  host::ClearAttributes(path);
  return Removed(host::RemoveFile(path), path, notes);
}

// One listing serves a whole folder: a listing here is a copy that nested deletions cannot disturb, and going through
// it once ends even when something cannot be deleted.
bool RemoveTree(const std::string& folder, Notes* notes) {
  host::ClearAttributes(folder);
  const host::Listing listing = host::ListFolder(folder, "*.*");
  bool emptied = true;
  for (const host::Entry& entry : listing.value) {
    const std::string path = folder + "\\" + entry.name;
    const bool real_folder = entry.kind == host::EntryKind::kFolder && !entry.is_link;
    emptied = (real_folder ? RemoveTree(path, notes) : RemoveLeaf(path, notes)) && emptied;
  }
  const host::Status status = host::RemoveEmptyFolder(folder);
  if (status.ok()) return true;
  // A folder that stays because of what stays in it is no news.
  if (emptied) Removed(listing.status.ok() ? status : listing.status, folder, notes);
  return false;
}

// A separator at the end would lead through a link to its target; the root of a drive keeps its own.
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
  entry->is_link ? RemoveLeaf(folder, notes) : RemoveTree(folder, notes);
  return !FolderExists(folder);
}

}  // namespace discwright::util
