// Looking at, making, moving and removing files and folders.
#include "host/files.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

#include "host/posix/case_lookup.h"
#include "host/posix/copy_file.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"
#include "host/posix/regular_file.h"

namespace discwright::host {
namespace {

// mkdir that takes an existing folder (or a link to one) for a success.
Status MakeFolder(const std::string& native) {
  if (mkdir(native.c_str(), 0777) == 0) {
    NoteCreated(native);
    return Status::Success();
  }
  const int error = errno;
  struct stat facts {};
  const bool is_folder = stat(native.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
  return is_folder ? Status::Success() : StatusOf(error);
}

Status MakeNativeFolders(const std::string& native) {
  Status status = MakeFolder(native);
  if (status.error != ErrorClass::kNotFound || native == "/" || native.empty()) return status;
  status = MakeNativeFolders(NativeFolder(native));
  return status.ok() ? MakeFolder(native) : status;
}

// rename() that refuses an existing target, also on file systems that cannot do so in one step.
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

// Whether both paths lead to the same file or folder. If so, `facts` describes it.
bool LeadToOne(std::string_view a, std::string_view b, struct stat& facts) {
  struct stat second {};
  return stat(RealPath(a).c_str(), &facts) == 0 && stat(RealPath(b).c_str(), &second) == 0 &&
         facts.st_dev == second.st_dev && facts.st_ino == second.st_ino;
}

}  // namespace

bool SameFolder(std::string_view a, std::string_view b) {
  struct stat facts {};
  return LeadToOne(a, b, facts) && S_ISDIR(facts.st_mode);
}

bool SameFile(std::string_view a, std::string_view b) {
  struct stat facts {};
  return LeadToOne(a, b, facts) && !S_ISDIR(facts.st_mode);
}

bool CanRead(std::string_view path) { return OpenRegular(RealPath(path), O_RDONLY).status.ok(); }

Status MakeFolders(std::string_view path) { return MakeNativeFolders(RealPath(path)); }

Status ClearAttributes(std::string_view path) {
  const std::string native = RealPath(path);
  struct stat facts {};
  if (lstat(native.c_str(), &facts) != 0) return LastFailure();
  const mode_t wanted = facts.st_mode | (S_ISDIR(facts.st_mode) ? S_IRWXU : S_IRUSR | S_IWUSR);
  if (S_ISLNK(facts.st_mode) || wanted == facts.st_mode) return Status::Success();
  return StatusOfResult(fchmodat(AT_FDCWD, native.c_str(), wanted & 07777u, AT_SYMLINK_NOFOLLOW));
}

Status RemoveFile(std::string_view path) { return StatusOfResult(unlink(RealPath(path).c_str())); }

Status RemoveEmptyFolder(std::string_view path) { return StatusOfResult(rmdir(RealPath(path).c_str())); }

Status RenameFile(std::string_view from, std::string_view to) {
  const std::string source = RealPath(from);
  const std::string target = RealPath(to);
  if (RenameToFreeName(source, target) == 0) {
    NoteCreated(target);
    return Status::Success();
  }
  if (errno != EXDEV) return LastFailure();
  const Status copied = CopyToFreeName(source, target);
  return copied.ok() ? StatusOfResult(unlink(source.c_str())) : copied;
}

}  // namespace discwright::host
