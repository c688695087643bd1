// Reads folder trees relative to one open folder, so that no path is too long for the system.
#include "host/source_tree.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>

#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/folder_reader.h"
#include "host/posix/regular_file.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {
namespace {

constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
// A pipe or terminal may have taken a file's place since the file was listed. It must not block, and must not become
// the program's own terminal.
constexpr int kFileFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

// openat() for paths of any length. A path that is too long for the system is opened folder by folder.
UniqueFd OpenBelow(int root, std::string_view path, int flags) {
  UniqueFd held;
  int base = root;
  while (path.size() >= PATH_MAX) {
    const std::size_t slash = path.substr(0, PATH_MAX - 1).rfind('/');
    if (slash == path.npos) {
      errno = ENAMETOOLONG;
      return {};
    }
    held = UniqueFd(openat(base, std::string(path.substr(0, slash)).c_str(), kFolderFlags));
    if (!held.valid()) return {};
    base = held.get();
    path.remove_prefix(slash + 1);
  }
  return UniqueFd(openat(base, path.empty() ? "." : std::string(path).c_str(), flags));
}

void TakeFacts(const struct stat& facts, TreeEntry& entry) {
  entry.kind = S_ISREG(facts.st_mode)   ? EntryKind::kFile
               : S_ISDIR(facts.st_mode) ? EntryKind::kFolder
                                        : EntryKind::kSpecial;
  entry.size = entry.kind == EntryKind::kFile ? static_cast<std::uint64_t>(facts.st_size) : 0;
  entry.modified = facts.st_mtim.tv_sec;
  entry.volume = facts.st_dev;
  entry.id = facts.st_ino;
  entry.has_other_names = entry.kind == EntryKind::kFile && facts.st_nlink > 1;
}

TreeEntry LookAt(int folder, const dirent& found) {
  TreeEntry entry;
  entry.name = found.d_name;
  entry.is_link = found.d_type == DT_LNK;
  struct stat facts {};
  int result = fstatat(folder, found.d_name, &facts, entry.is_link ? 0 : AT_SYMLINK_NOFOLLOW);
  if (result == 0 && S_ISLNK(facts.st_mode)) {  // the listing did not tell the kind
    entry.is_link = true;
    result = fstatat(folder, found.d_name, &facts, 0);
  }
  entry.status = StatusOfResult(result);
  if (result == 0) TakeFacts(facts, entry);
  return entry;
}

class PosixSourceFile : public SourceFile {
 public:
  explicit PosixSourceFile(UniqueFd fd) : fd_(std::move(fd)) {}
  Result<std::size_t> Read(std::span<std::uint8_t> bytes) override {
    std::size_t count = 0;
    while (count < bytes.size()) {
      const ssize_t got = read(fd_.get(), bytes.data() + count, bytes.size() - count);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) return LastFailure();
      if (got == 0) break;
      count += static_cast<std::size_t>(got);
      // A regular file returns less than requested only at its end. Asking again would be one more system call for each
      // file.
      if (count < bytes.size()) break;
    }
    return count;
  }

 private:
  UniqueFd fd_;
};

class PosixSourceTree : public SourceTree {
 public:
  explicit PosixSourceTree(UniqueFd root) : root_(std::move(root)) {}

  Status List(const std::string& path, const std::function<void(const TreeEntry&)>& visit) override {
    FolderReader reader(OpenBelow(root_.get(), path, kFolderFlags));
    while (const dirent* found = reader.Next()) visit(LookAt(reader.fd(), *found));
    return reader.status();
  }

  TreeEntry Look(const std::string& path) override {
    TreeEntry entry;
    struct stat facts {};
    const UniqueFd fd = OpenBelow(root_.get(), path, O_PATH | O_CLOEXEC);
    entry.status = fd.valid() ? StatusOfResult(fstat(fd.get(), &facts)) : LastFailure();
    if (entry.status.ok()) TakeFacts(facts, entry);
    return entry;
  }

  Result<std::unique_ptr<SourceFile>> Open(const std::string& path) override {
    UniqueFd fd = OpenBelow(root_.get(), path, kFileFlags);
    if (!fd.valid()) return LastFailure();
    return std::make_unique<PosixSourceFile>(std::move(fd));
  }

 private:
  UniqueFd root_;
};

}  // namespace

Result<std::unique_ptr<SourceTree>> OpenSourceTree(std::string_view folder) {
  const Result<std::string> native = RealPath(folder);
  if (!native.ok()) return native.status;
  UniqueFd root(open(native.value.c_str(), kFolderFlags));
  if (!root.valid()) return LastFailure();
  return std::make_unique<PosixSourceTree>(std::move(root));
}

}  // namespace discwright::host
