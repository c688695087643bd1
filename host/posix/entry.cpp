// Finds out what names in a folder are, with as few looks at the disk as possible.
#include "host/posix/entry.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

void SetKind(Entry& entry, const struct stat& facts) {
  entry.kind = S_ISDIR(facts.st_mode)   ? EntryKind::kFolder
               : S_ISREG(facts.st_mode) ? EntryKind::kFile
                                        : EntryKind::kSpecial;
  if (entry.kind == EntryKind::kFile) entry.size = facts.st_size;
}

}  // namespace

std::optional<Entry> EntryReader::Read(const char* name, unsigned char type) {
  Entry entry;
  entry.name = CoreName(NativeName(name));
  if (type == DT_DIR) {
    entry.kind = EntryKind::kFolder;
    return entry;
  }
  if (type == DT_UNKNOWN || type == DT_REG) {
    struct stat facts {};
    if (fstatat(folder_fd_, name, &facts, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
    entry.is_link = S_ISLNK(facts.st_mode);
    if (!entry.is_link) SetKind(entry, facts);
  } else if (type == DT_LNK) {
    entry.is_link = true;
  } else {
    entry.kind = EntryKind::kSpecial;
  }
  if (entry.is_link) FollowLink(name, entry);
  return entry;
}

void EntryReader::FollowLink(const char* name, Entry& entry) {
  struct stat facts {};
  entry.broken = fstatat(folder_fd_, name, &facts, 0) != 0;
  if (entry.broken) return;
  SetKind(entry, facts);
  entry.loops = entry.kind == EntryKind::kFolder && IsOwnParent({facts.st_dev, facts.st_ino});
}

bool EntryReader::IsOwnParent(const Identity& target) {
  if (parents_.empty()) FindParents();
  return std::find(parents_.begin(), parents_.end(), target) != parents_.end();
}

// The folder and every folder on the way to it, by the way it is written: a link that was descended is one of them.
void EntryReader::FindParents() {
  for (std::string folder = folder_;; folder = NativeFolder(folder)) {
    struct stat facts {};
    if (stat(folder.c_str(), &facts) == 0) parents_.push_back({facts.st_dev, facts.st_ino});
    if (folder == "/") return;
  }
}

}  // namespace discwright::host
