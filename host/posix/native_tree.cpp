// Lists folders, copies trees exactly and removes them.
#include "host/posix/native_tree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <climits>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "host/posix/copy_file.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

Status CopyLink(const std::string& from, const std::string& to) {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = readlink(from.c_str(), target.data(), target.size());
  if (length < 0) return LastFailure();
  const std::string text(target.data(), static_cast<std::size_t>(length));
  return StatusOfResult(symlink(text.c_str(), to.c_str()));
}

Status CopyFolder(const std::string& from, const std::string& to) {
  // Its own mode comes last: it may not let anything be made in it.
  Status status = StatusOfResult(mkdir(to.c_str(), S_IRWXU));
  std::vector<std::string> names;
  if (status.ok()) status = NamesIn(from, names);
  for (const std::string& name : names) {
    if (!status.ok()) break;
    status = CopyTree(NativeJoin(from, name), NativeJoin(to, name));
  }
  return status;
}

Status CopyOfKind(const std::string& from, const std::string& to, mode_t mode) {
  if (S_ISDIR(mode)) return CopyFolder(from, to);
  if (S_ISLNK(mode)) return CopyLink(from, to);
  return S_ISREG(mode) ? CopyToFreeName(from, to) : NotARegularFile(false);
}

// Owner, mode and times of the original, what must not be given away coming first.
Status TakeOver(const std::string& to, const struct stat& original) {
  const bool is_same_owner = lchown(to.c_str(), original.st_uid, original.st_gid) == 0;
  // A program that runs as its owner must not do so as another.
  const mode_t kept = is_same_owner ? 07777 : 0777;
  if (!S_ISLNK(original.st_mode) && chmod(to.c_str(), original.st_mode & kept) != 0) return LastFailure();
  // A file system that has no room for the times does not spoil the copy.
  const std::array<timespec, 2> times{original.st_atim, original.st_mtim};
  static_cast<void>(utimensat(AT_FDCWD, to.c_str(), times.data(), AT_SYMLINK_NOFOLLOW));
  return Status::Success();
}

}  // namespace

bool IsFolder(const std::string& native) {
  struct stat facts {};
  return stat(native.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

Status NamesIn(const std::string& folder, std::vector<std::string>& names) {
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    names.push_back(entry->path().filename().native());
  }
  std::sort(names.begin(), names.end());
  return error ? StatusOf(error.value()) : Status::Success();
}

Status CopyTree(const std::string& from, const std::string& to) {
  struct stat original {};
  if (lstat(from.c_str(), &original) != 0) return LastFailure();
  Status status = CopyOfKind(from, to, original.st_mode);
  return status.ok() ? TakeOver(to, original) : status;
}

Status RemoveTree(const std::string& native) {
  struct stat facts {};
  if (lstat(native.c_str(), &facts) != 0) return LastFailure();
  if (!S_ISDIR(facts.st_mode)) return StatusOfResult(unlink(native.c_str()));
  // When this is not permitted, neither is what follows.
  if ((facts.st_mode & S_IRWXU) != S_IRWXU) static_cast<void>(chmod(native.c_str(), S_IRWXU));
  std::vector<std::string> names;
  Status status = NamesIn(native, names);
  for (const std::string& name : names) {
    if (!status.ok()) return status;
    status = RemoveTree(NativeJoin(native, name));
  }
  return status.ok() ? StatusOfResult(rmdir(native.c_str())) : status;
}

}  // namespace discwright::host
