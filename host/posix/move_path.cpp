// Moves files and folders by renaming them where the system can, and by copying them where it cannot.
#include "host/posix/move_path.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <unordered_map>

#include "host/files.h"
#include "host/names.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/folder_reader.h"
#include "host/posix/native_path.h"
#include "host/posix/new_file.h"

namespace discwright::host {
namespace {

bool IsOne(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

bool IsLink(const std::string& native) {
  struct stat facts {};
  return lstat(native.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode);
}

// Whether `native`, which need not exist, is inside the folder.
bool IsBelow(const std::string& native, const struct stat& folder) {
  std::error_code error;
  // Links are followed first: otherwise the folders in the text of the path may not be its real parents.
  std::string parent = std::filesystem::weakly_canonical(NativeFolder(native), error).native();
  for (; !error; parent = NativeFolder(parent)) {
    struct stat facts {};
    if (stat(parent.c_str(), &facts) == 0 && IsOne(facts, folder)) return true;
    if (parent == "/") return false;
  }
  return false;
}

// rename() that can also replace a link by a folder.
int RenameOver(const std::string& from, const std::string& to) {
  const int result = std::rename(from.c_str(), to.c_str());
  if (result == 0 || errno != ENOTDIR || !IsLink(to) || unlink(to.c_str()) != 0) return result;
  return std::rename(from.c_str(), to.c_str());
}

// Copies a file, a link or a whole folder to a name that is free. Keeps times and modes, and also owners where the
// system permits this. Never follows links. Devices, sockets and pipes are a failure. After a failure, a part of the
// copy remains.
Status CopyTree(const std::string& from, const std::string& to);

Status CopyLink(const std::string& from, const std::string& to) {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = readlink(from.c_str(), target.data(), target.size());
  if (length < 0) return LastFailure();
  const std::string text(target.data(), static_cast<std::size_t>(length));
  return StatusOfResult(symlink(text.c_str(), to.c_str()));
}

Status CopyFolder(const std::string& from, const std::string& to) {
  // The folder's own mode is set last, because it may not allow creating anything in it.
  Status status = StatusOfResult(mkdir(to.c_str(), S_IRWXU));
  if (!status.ok()) return status;
  const Result<std::vector<std::string>> names = NamesIn(from);
  for (const std::string& name : names.value) {
    status = CopyTree(NativeJoin(from, name), NativeJoin(to, name));
    if (!status.ok()) return status;
  }
  return names.status;
}

Status CopyOfKind(const std::string& from, const std::string& to, mode_t mode) {
  if (S_ISDIR(mode)) return CopyFolder(from, to);
  if (S_ISLNK(mode)) return CopyLink(from, to);
  return S_ISREG(mode) ? CopyToFreeName(from, to) : NotARegularFile(false);
}

// Gives a copy the owner, mode and times of the original. The owner is set first, because this may clear bits of the
// mode.
Status TakeOver(const std::string& to, const struct stat& original) {
  const bool is_same_owner = lchown(to.c_str(), original.st_uid, original.st_gid) == 0;
  // When the owner cannot be kept, the set-user-ID and set-group-ID bits are dropped: a program with these bits would
  // run as another user.
  const mode_t kept = is_same_owner ? 07777 : 0777;
  if (!S_ISLNK(original.st_mode) && chmod(to.c_str(), original.st_mode & kept) != 0) return LastFailure();
  // A failure is ignored, because some file systems cannot store the times.
  const std::array<timespec, 2> times{original.st_atim, original.st_mtim};
  static_cast<void>(utimensat(AT_FDCWD, to.c_str(), times.data(), AT_SYMLINK_NOFOLLOW));
  return Status::Success();
}

Status CopyTree(const std::string& from, const std::string& to) {
  struct stat original {};
  if (lstat(from.c_str(), &original) != 0) return LastFailure();
  Status status = CopyOfKind(from, to, original.st_mode);
  return status.ok() ? TakeOver(to, original) : status;
}

// Removes a file, a link or a whole folder, even when folders in it may not be written to.
Status RemoveTree(const std::string& native) {
  struct stat facts {};
  if (lstat(native.c_str(), &facts) != 0) return LastFailure();
  if (!S_ISDIR(facts.st_mode)) return StatusOfResult(unlink(native.c_str()));
  // When this is not permitted, the calls below fail and report it.
  if ((facts.st_mode & S_IRWXU) != S_IRWXU) static_cast<void>(chmod(native.c_str(), S_IRWXU));
  const Result<std::vector<std::string>> names = NamesIn(native);
  for (const std::string& name : names.value) {
    if (Status status = RemoveTree(NativeJoin(native, name)); !status.ok()) return status;
  }
  return names.ok() ? StatusOfResult(rmdir(native.c_str())) : names.status;
}

// rename() that refuses an existing target, even on file systems that cannot do this in one step.
int RenameToFreeName(const std::string& from, const std::string& to) {
  const int result = renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
  if (result == 0 || (errno != EINVAL && errno != ENOSYS)) return result;
  struct stat facts {};
  if (lstat(to.c_str(), &facts) == 0) {
    errno = EEXIST;
    return -1;
  }
  return std::rename(from.c_str(), to.c_str());
}

// Copies to a temporary name first, so that an incomplete copy never has the final name.
Status MoveAcross(const std::string& from, const std::string& to) {
  const std::string temporary = TemporaryName(to);
  Status status = CopyTree(from, temporary);
  if (status.ok()) status = StatusOfResult(RenameOver(temporary, to));
  if (status.ok()) return RemoveTree(from);
  static_cast<void>(RemoveTree(temporary));
  return status;
}

// Moves to a name that is free or may be replaced.
Status PutAt(const std::string& from, const std::string& to) {
  int result = RenameOver(from, to);
  if (result != 0 && errno == ENOENT) {
    Status made = MakeFolders(PathFromNative(NativeFolder(to)));
    if (!made.ok()) return made;
    result = RenameOver(from, to);
  }
  Status status = result != 0 && errno == EXDEV ? MoveAcross(from, to) : StatusOfResult(result);
  NoteChanged(NativeFolder(to));
  return status;
}

// Handles two paths that are the same file: either two names of it, which become one, or one name on a file system that
// ignores letter case. rename() alone would do nothing in both cases.
Status MoveOntoItself(const std::string& from, const std::string& to) {
  if (from == to) return Status::Success();
  const std::string temporary = TemporaryName(to);
  if (std::rename(from.c_str(), temporary.c_str()) != 0) return LastFailure();
  Status status = StatusOfResult(std::rename(temporary.c_str(), to.c_str()));
  if (status.ok()) {
    unlink(temporary.c_str());  // exists only if it was the file's second name
  } else {
    std::rename(temporary.c_str(), from.c_str());
  }
  NoteChanged(NativeFolder(to));
  return status;
}

// Returns the name that each of `names` gets in a folder that contains the names `there`; both are sorted. When the
// folder has a name that differs only in letter case, this name is used, but only once, and not when `names` contains
// exactly this name, too.
std::vector<std::string> PlacesFor(const std::vector<std::string>& names, const std::vector<std::string>& there) {
  std::unordered_map<std::string, std::string> others;
  for (const std::string& name : there) {
    if (!std::binary_search(names.begin(), names.end(), name)) others.try_emplace(FoldCase(CoreName(name)), name);
  }
  std::vector<std::string> places;
  for (const std::string& name : names) {
    const bool is_there = std::binary_search(there.begin(), there.end(), name);
    const auto other = is_there ? others.end() : others.find(FoldCase(CoreName(name)));
    places.push_back(other == others.end() ? name : other->second);
    if (other != others.end()) others.erase(other);
  }
  return places;
}

// Whether only this one name cannot be moved, because a file is in the place of a folder or the other way round. The
// shell of Windows goes on with the next name in this case.
bool IsInTheWay(const Status& status) {
  return status.error == ErrorClass::kWrongKind || status.error == ErrorClass::kExists;
}

Status JoinFolder(const std::string& from, const std::string& to) {
  const Result<std::vector<std::string>> names = NamesIn(from);
  if (!names.ok()) return names.status;
  Status status = MoveNames(from, names.value, to);
  return status.ok() ? StatusOfResult(rmdir(from.c_str())) : status;
}

// Moves to a path that exists.
Status MoveOver(const std::string& from, bool is_folder, const std::string& to, bool is_folder_there) {
  if (is_folder && is_folder_there) return JoinFolder(from, to);
  if (is_folder_there) return NotARegularFile(true);
  return is_folder && !IsFolder(to) ? StatusOf(EEXIST) : PutAt(from, to);
}

}  // namespace

Status MovePath(const std::string& from, const std::string& to) {
  struct stat source {};
  struct stat target {};
  if (lstat(from.c_str(), &source) != 0) return LastFailure();
  const bool is_folder = S_ISDIR(source.st_mode);
  if (is_folder && IsBelow(to, source)) return StatusOf(ELOOP);
  if (lstat(to.c_str(), &target) != 0) return errno == ENOENT ? PutAt(from, to) : LastFailure();
  if (IsOne(source, target)) return MoveOntoItself(from, to);
  return MoveOver(from, is_folder, to, S_ISDIR(target.st_mode));
}

Status MoveNames(const std::string& from, const std::vector<std::string>& names, const std::string& to) {
  const Result<std::vector<std::string>> there = NamesIn(to);
  if (!there.ok()) return there.status;
  const std::vector<std::string> places = PlacesFor(names, there.value);
  Status in_the_way;
  for (std::size_t i = 0; i < names.size(); ++i) {
    Status status = MovePath(NativeJoin(from, names[i]), NativeJoin(to, places[i]));
    if (!status.ok() && !IsInTheWay(status)) return status;
    if (!status.ok() && in_the_way.ok()) in_the_way = status;
  }
  return in_the_way;
}

Status RenameFile(std::string_view from, std::string_view to) {
  const Result<std::string> source = RealPath(from);
  const Result<std::string> target = RealPathOfNew(to);
  if (!source.ok()) return source.status;
  if (!target.ok()) return target.status;
  if (RenameToFreeName(source.value, target.value) == 0) {
    NoteCreated(target.value);
    return Status::Success();
  }
  if (errno != EXDEV) return LastFailure();
  const Status copied = CopyToFreeName(source.value, target.value);
  return copied.ok() ? StatusOfResult(unlink(source.value.c_str())) : copied;
}

}  // namespace discwright::host
