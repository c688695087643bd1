// Deletes a folder with everything in it.
#include "host/files.h"
#include "host/folder_facts.h"
#include "util/paths.h"

namespace discwright::util {

namespace {

constexpr const char* kNotDeleted = "could not be deleted";

class Deletion {
 public:
  Deletion(Notes* notes, const std::function<bool()>& go_on) : notes_(notes), go_on_(go_on) {}

  // The status is that of deleting the path, or of looking at it. Notes a failure.
  bool Removed(const host::Status& status, const std::string& path) {
    return notes_ == nullptr ? status.ok() : notes_->Check(status, path, kNotDeleted);
  }

  bool RemoveFileOrLink(const std::string& path) {
    host::ClearAttributes(path);
    return Removed(host::RemoveFile(path), path);
  }

  // The folder is listed once, before anything in it is deleted. So the loop ends even if something cannot be deleted.
  bool RemoveTree(const std::string& folder) {
    // What is mounted in a folder belongs to the user.
    const host::Result<host::FolderFacts> facts = host::FactsOfFolder(folder);
    if (!Removed(facts.status, folder)) return false;
    if (facts.value.is_mount_point) {
      if (notes_ != nullptr) notes_->Add(folder, "was not deleted: it is a mount point; unmount it");
      return false;
    }
    host::ClearAttributes(folder);
    const host::Listing listing = host::ListFolder(folder, "*.*");
    bool emptied = true;
    for (const host::Entry& entry : listing.value) {
      if (!GoOn()) return false;
      const std::string path = folder + "\\" + entry.name;
      const bool real_folder = entry.kind == host::EntryKind::kFolder && !entry.is_link;
      emptied = (real_folder ? RemoveTree(path) : RemoveFileOrLink(path)) && emptied;
    }
    if (!GoOn()) return false;
    const host::Status status = host::RemoveEmptyFolder(folder);
    if (status.ok()) return true;
    // If something in the folder could not be deleted, that has been noted. The folder itself needs no second note.
    if (emptied) Removed(listing.status.ok() ? status : listing.status, folder);
    return false;
  }

 private:
  bool GoOn() {
    stopped_ = stopped_ || (go_on_ && !go_on_());
    return !stopped_;
  }

  Notes* notes_;
  const std::function<bool()>& go_on_;
  bool stopped_ = false;
};

// With a separator at its end, the path of a link would mean the link's target. The root of a drive needs its
// separator.
std::string WithoutLastSeparator(std::string path) {
  while (path.size() > 1 && IsPathSeparator(path.back()) && path[path.size() - 2] != ':') path.pop_back();
  return path;
}

}  // namespace

bool DelTree(std::string_view path, Notes* notes, const std::function<bool()>& go_on) {
  if (Trim(path).empty()) return true;
  const std::string folder = WithoutLastSeparator(std::string(path));
  Deletion deletion(notes, go_on);
  const host::Result<host::Entry> entry = host::Look(folder);
  if (entry.status.error == host::ErrorClass::kNotFound) return true;
  if (!deletion.Removed(entry.status, folder)) return false;
  if (entry.value.kind != host::EntryKind::kFolder) return true;
  // Not asked again: a folder that cannot be listed would look like one that is gone.
  return entry.value.is_link ? deletion.RemoveFileOrLink(folder) : deletion.RemoveTree(folder);
}

}  // namespace discwright::util
