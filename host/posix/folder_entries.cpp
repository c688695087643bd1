// Finds out what names in a folder are, with as few looks at the disk as possible.
#include "host/folder_entries.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "host/posix/case_lookup.h"
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

// Describes what has the native name `name` in the open folder. `type` is what readdir says of it, or DT_UNKNOWN.
std::optional<Entry> Describe(int folder, const char* name, unsigned char type) {
  Entry entry;
  entry.name = CoreName(NativeName(name));
  if (type == DT_DIR) {
    entry.kind = EntryKind::kFolder;
    return entry;
  }
  struct stat facts {};
  if (type == DT_UNKNOWN || type == DT_REG) {
    if (fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
    entry.is_link = S_ISLNK(facts.st_mode);
    if (!entry.is_link) SetKind(entry, facts);
  } else if (type == DT_LNK) {
    entry.is_link = true;
  } else {
    entry.kind = EntryKind::kSpecial;
  }
  if (!entry.is_link) return entry;
  entry.broken = fstatat(folder, name, &facts, 0) != 0;
  if (!entry.broken) SetKind(entry, facts);
  return entry;
}

}  // namespace

Listing ReadEntries(std::string_view folder, const std::function<bool(const std::string& name)>& is_wanted) {
  std::vector<Entry> entries;
  FolderReader reader(RealPath(folder));
  while (const dirent* found = reader.Next()) {
    if (!is_wanted(CoreName(found->d_name))) continue;
    std::optional<Entry> entry = Describe(reader.fd(), found->d_name, found->d_type);
    if (entry) entries.push_back(std::move(*entry));
  }
  return reader.status().ok() ? Listing(std::move(entries)) : Listing(reader.status());
}

std::optional<Entry> ReadEntry(std::string_view path) {
  const std::string native = RealPath(path);
  return native.empty() ? std::nullopt : Describe(AT_FDCWD, native.c_str(), DT_UNKNOWN);
}

}  // namespace discwright::host
