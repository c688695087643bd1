// Describes the entries of folders with as few accesses to the disk as possible.
#include "host/folder_entries.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/folder_reader.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

void SetKind(Entry& entry, const struct stat& facts) {
  entry.kind = S_ISDIR(facts.st_mode)   ? EntryKind::kFolder
               : S_ISREG(facts.st_mode) ? EntryKind::kFile
                                        : EntryKind::kSpecial;
  if (entry.kind == EntryKind::kFile) entry.size = facts.st_size;
}

// Sets the kind and size of the file or folder to which a link leads, or marks the link as broken.
void FollowLink(Entry& entry, int folder, const char* name) {
  struct stat facts {};
  const Status status = StatusOfResult(fstatat(folder, name, &facts, 0));
  if (status.ok()) {
    SetKind(entry, facts);
  } else if (status.error == ErrorClass::kNotFound) {
    entry.broken = true;
  } else {
    entry.problem = status;
  }
}

// Describes the entry with the native name `name` in the open folder. `type` is the type that readdir() has returned,
// or DT_UNKNOWN.
Entry Describe(int folder, const char* name, unsigned char type) {
  Entry entry;
  entry.name = CoreName(NativeName(name));
  entry.is_link = type == DT_LNK;
  if (type == DT_DIR) {
    entry.kind = EntryKind::kFolder;
  } else if (type == DT_UNKNOWN || type == DT_REG) {
    struct stat facts {};
    entry.problem = StatusOfResult(fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW));
    entry.is_link = entry.problem.ok() && S_ISLNK(facts.st_mode);
    if (entry.problem.ok()) SetKind(entry, facts);
  } else if (type != DT_LNK) {
    entry.kind = EntryKind::kSpecial;
  }
  if (entry.is_link) {
    entry.kind = EntryKind::kFile;
    FollowLink(entry, folder, name);
  }
  return entry;
}

// Whether the entry was deleted after the folder was read.
bool HasVanished(const Entry& entry) { return entry.problem.error == ErrorClass::kNotFound; }

}  // namespace

Listing ReadEntries(std::string_view folder, const std::function<bool(const std::string& name)>& is_wanted) {
  const Result<std::string> native = RealPath(folder);
  if (!native.ok()) return native.status;
  std::vector<Entry> entries;
  FolderReader reader(native.value);
  while (const dirent* found = reader.Next()) {
    if (!is_wanted(CoreName(found->d_name))) continue;
    Entry entry = Describe(reader.fd(), found->d_name, found->d_type);
    if (!HasVanished(entry)) entries.push_back(std::move(entry));
  }
  return reader.status().ok() ? Listing(std::move(entries)) : Listing(reader.status());
}

Result<Entry> ReadEntry(std::string_view path) {
  const Result<std::string> native = RealPath(path);
  if (!native.ok()) return native.status;
  if (native.value.empty()) return StatusOf(ENOENT);
  Entry entry = Describe(AT_FDCWD, native.value.c_str(), DT_UNKNOWN);
  if (HasVanished(entry)) return entry.problem;
  return entry;
}

}  // namespace discwright::host
