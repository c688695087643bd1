// Creates hard links, and describes the files that may have some.
#include "host/hard_links.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>

#include "host/posix/errors.h"
#include "host/posix/folder_reader.h"
#include "host/posix/native_path.h"
#include "host/posix/regular_file.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {
namespace {

FileFacts ToFacts(const struct stat& facts) {
  constexpr std::int64_t kSecond = 1'000'000'000;
  return {facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim.tv_sec * kSecond + facts.st_mtim.tv_nsec,
          facts.st_nlink};
}

// Returns std::nullopt for an entry that is left out of a listing.
std::optional<NamedFacts> Describe(int folder_fd, const dirent& found) {
  const bool may_be_file = found.d_type == DT_REG || found.d_type == DT_UNKNOWN;
  if (found.d_type == DT_DIR) return NamedFacts{CoreName(found.d_name), true, {}};
  if (!may_be_file) return std::nullopt;
  struct stat facts {};
  if (fstatat(folder_fd, found.d_name, &facts, AT_SYMLINK_NOFOLLOW) != 0) {
    const Status status = LastFailure();
    const bool has_vanished = status.error == ErrorClass::kNotFound;
    return has_vanished ? std::nullopt : std::optional(NamedFacts{CoreName(found.d_name), false, {}, status});
  }
  if (S_ISDIR(facts.st_mode)) return NamedFacts{CoreName(found.d_name), true, {}};
  if (!S_ISREG(facts.st_mode)) return std::nullopt;
  return NamedFacts{CoreName(found.d_name), false, ToFacts(facts)};
}

UniqueFd OpenQuietly(const std::string& native) {
  // O_NONBLOCK: the call must not wait for the other end of a pipe that has taken the file's place.
  constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
  // Storing the time of the access would cost more than reading many of the files. Only the owner of a file may prevent
  // it.
  UniqueFd fd(open(native.c_str(), kFlags | O_NOATIME));
  return fd.valid() || errno != EPERM ? std::move(fd) : UniqueFd(open(native.c_str(), kFlags));
}

// Whether links can be made in a folder. A refusal may be due to this one file (it is protected or has another owner)
// or to the file system. Only a test with new files shows which.
bool FolderTakesLinks(const std::string& folder) {
  static std::atomic<unsigned> counter = 0;
  const std::string stem = NativeJoin(folder, ".discwright-" + std::to_string(getpid()) + "-link-");
  const std::string probe = stem + std::to_string(counter++);
  const std::string second = stem + std::to_string(counter++);
  const UniqueFd fd(open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!fd.valid()) return true;  // unknown; the failure of the file itself is the better message
  const bool takes = link(probe.c_str(), second.c_str()) == 0;
  if (takes) unlink(second.c_str());
  unlink(probe.c_str());
  return takes;
}

// Some file systems without hard links report that a file with one name has the largest possible number of names.
bool HasOneName(const std::string& native) {
  struct stat facts {};
  return lstat(native.c_str(), &facts) == 0 && facts.st_nlink < 2;
}

LinkEnd EndOf(int error, const std::string& existing, const std::string& fresh) {
  switch (error) {
    case EEXIST:
      return LinkEnd::kNameTaken;
    case EMLINK:
      return HasOneName(existing) ? LinkEnd::kUnsupported : LinkEnd::kTooManyLinks;
    case EXDEV:
      return LinkEnd::kOtherVolume;
    case ENOSYS:
    case EOPNOTSUPP:
      return LinkEnd::kUnsupported;
    case EPERM:
      return FolderTakesLinks(NativeFolder(fresh)) ? LinkEnd::kFailed : LinkEnd::kUnsupported;
    default:
      return LinkEnd::kFailed;
  }
}

}  // namespace

Result<std::vector<NamedFacts>> ListFacts(std::string_view folder) {
  std::vector<NamedFacts> entries;
  FolderReader reader(NativePath(folder));
  while (const dirent* found = reader.Next()) {
    std::optional<NamedFacts> entry = Describe(reader.fd(), *found);
    if (entry) entries.push_back(std::move(*entry));
  }
  if (!reader.status().ok()) return reader.status();
  std::sort(entries.begin(), entries.end(), [](const NamedFacts& a, const NamedFacts& b) { return a.name < b.name; });
  return entries;
}

std::optional<FileFacts> FactsOf(std::string_view path) {
  struct stat facts {};
  if (lstat(NativePath(path).c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
  return ToFacts(facts);
}

Result<std::unique_ptr<BinaryFile>> OpenUnchanged(std::string_view path, const FileFacts& facts) {
  UniqueFd fd = OpenQuietly(NativePath(path));
  struct stat now {};
  if (!fd.valid() || fstat(fd.get(), &now) != 0) return LastFailure();
  if (S_ISREG(now.st_mode) && ToFacts(now).IsUnchanged(facts)) return WrapBinaryFile(std::move(fd));
  return Status::Failure(ErrorClass::kOther, "The file has changed");
}

LinkAnswer MakeHardLink(std::string_view existing, std::string_view fresh) {
  const std::string from = NativePath(existing);
  const std::string to = NativePath(fresh);
  if (link(from.c_str(), to.c_str()) == 0) return {};
  const int error = errno;
  return {EndOf(error, from, to), StatusOf(error)};
}

Status MoveOver(std::string_view from, std::string_view to) {
  const std::string source = NativePath(from);
  const std::string target = NativePath(to);
  // When a rename replaces a file, ext4 writes the data of a new file to the disk at once, which is not needed here. An
  // exchange does not cause this.
  if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE) == 0) {
    return StatusOfResult(unlink(source.c_str()));
  }
  if (errno != EINVAL && errno != ENOSYS) return LastFailure();
  return StatusOfResult(std::rename(source.c_str(), target.c_str()));
}

bool RemoveSpareName(std::string_view path) {
  const std::optional<FileFacts> facts = FactsOf(path);
  return facts && facts->links > 1 && unlink(NativePath(path).c_str()) == 0;
}

}  // namespace discwright::host
