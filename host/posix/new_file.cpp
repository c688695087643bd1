// Creates files that are either completed or deleted, and replaces the whole content of files.
#include "host/posix/new_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>

#include "base/temporary_names.h"
#include "host/files.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"
#include "host/posix/regular_file.h"

namespace discwright::host {
namespace {

// Gives the new file the owner and mode of the one that it replaces.
Status TakeOver(int fd, const struct stat& replaced) {
  // Only an administrator may change the owner of a file, and for all other users the owner is right already.
  if (fchown(fd, replaced.st_uid, replaced.st_gid) != 0 && errno != EPERM) return LastFailure();
  return StatusOfResult(fchmod(fd, replaced.st_mode & 07777u));
}

// A failure is ignored, because some file systems cannot store the times.
void KeepTimes(int fd, const struct stat& replaced) {
  const std::array<timespec, 2> times{replaced.st_atim, replaced.st_mtim};
  static_cast<void>(futimens(fd, times.data()));
}

// Whether the existing file may be replaced. For a rename the system only checks whether its folder may be changed, so
// it would replace a read-only file.
Status MayReplace(const std::string& native, const struct stat& facts) {
  const Status status = CheckRegular(facts);
  return status.ok() ? StatusOfResult(access(native.c_str(), W_OK)) : status;
}

}  // namespace

std::string TemporaryName(const std::string& native) {
  static std::atomic<unsigned> counter = 0;
  return NativeJoin(NativeFolder(native), base::TemporaryName(static_cast<unsigned long>(getpid()), counter++));
}

Status NewFile::Create(const std::string& native, mode_t mode) {
  fd_ = UniqueFd(open(native.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
  if (!fd_.valid()) return LastFailure();
  name_ = temporary_name_ = native;
  // This call is here and not in Commit, so that what other programs do in the folder during the writing is noticed.
  NoteCreated(native);
  return Status::Success();
}

Status NewFile::CreateBeside(const std::string& native, mode_t mode) {
  do {
    temporary_name_ = TemporaryName(native);
    fd_ = CreateLocked(temporary_name_, mode);
  } while (!fd_.valid() && errno == EEXIST);
  name_ = native;
  if (fd_.valid()) return Status::Success();
  temporary_name_.clear();
  return LastFailure();
}

Status NewFile::Commit() {
  // A second descriptor keeps the lock until the file has its final name.
  const UniqueFd lock(fcntl(fd_.get(), F_DUPFD_CLOEXEC, 0));
  if (!lock.valid() || fd_.Close() != 0) return LastFailure();
  if (temporary_name_ != name_) {
    if (std::rename(temporary_name_.c_str(), name_.c_str()) != 0) return LastFailure();
    NoteCreated(name_);
  }
  temporary_name_.clear();
  return Status::Success();
}

void NewFile::Discard() {
  if (!temporary_name_.empty()) unlink(temporary_name_.c_str());
  temporary_name_.clear();
}

Status WriteWholeFile(std::string_view path, std::string_view content, FileTimes times) {
  const Result<std::string> found = RealPathOfNew(path);
  if (!found.ok()) return found.status;
  const std::string& native = found.value;
  struct stat replaced {};
  // A link is replaced as if the file did not exist: its target and the permissions of the target do not matter.
  const bool exists = lstat(native.c_str(), &replaced) == 0 && !S_ISLNK(replaced.st_mode);
  Status status = exists ? MayReplace(native, replaced) : Status::Success();
  NewFile file;
  if (status.ok()) status = file.CreateBeside(native, 0666);
  if (status.ok()) status = StatusOfResult(WriteAll(file.fd(), content.data(), content.size()));
  if (status.ok() && exists) status = TakeOver(file.fd(), replaced);
  if (status.ok() && exists && times == FileTimes::kKept) KeepTimes(file.fd(), replaced);
  return status.ok() ? file.Commit() : status;
}

}  // namespace discwright::host
