// Creates files that are either finished or removed, and replaces the content of files as a whole.
#include "host/posix/new_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <climits>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>

#include "host/files.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"
#include "host/posix/regular_file.h"

namespace discwright::host {
namespace {

constexpr int kCreateFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;

// Where a chain of links ends, whether or not something is there: a user's linked settings file stays a link.
Result<std::string> EndOfLinks(std::string native) {
  constexpr int kMostLinks = 40;  // the system's own limit
  for (int i = 0; i < kMostLinks; ++i) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = readlink(native.c_str(), target.data(), target.size());
    if (length < 0) return native;
    const std::string_view next(target.data(), static_cast<std::size_t>(length));
    native = next.starts_with('/') ? std::string(next) : NativeJoin(NativeFolder(native), next);
  }
  return StatusOf(ELOOP);
}

// Gives the new file the owner and mode of the one that it replaces.
Status TakeOver(int fd, const struct stat& replaced) {
  // Only an administrator may give files away, and for anybody else the owner is right already.
  if (fchown(fd, replaced.st_uid, replaced.st_gid) != 0 && errno != EPERM) return LastFailure();
  return StatusOfResult(fchmod(fd, replaced.st_mode & 07777u));
}

// A file system that cannot store the times is no reason to fail.
void KeepTimes(int fd, const struct stat& replaced) {
  const std::array<timespec, 2> times{replaced.st_atim, replaced.st_mtim};
  static_cast<void>(futimens(fd, times.data()));
}

// Whether the existing file may be replaced. The system would only ask whether its folder may be changed, and so
// replace a read-only file.
Status MayReplace(const std::string& native, const struct stat& facts) {
  const Status status = CheckRegular(facts);
  return status.ok() ? StatusOfResult(access(native.c_str(), W_OK)) : status;
}

}  // namespace

std::string TemporaryName(const std::string& native) {
  static std::atomic<unsigned> counter = 0;
  const std::string name = ".discwright-" + std::to_string(getpid()) + "-" + std::to_string(counter++);
  return NativeJoin(NativeFolder(native), name);
}

Status NewFile::Create(const std::string& native, mode_t mode) {
  fd_ = UniqueFd(open(native.c_str(), kCreateFlags, mode));
  if (!fd_.valid()) return LastFailure();
  name_ = temporary_name_ = native;
  // At once and not in Commit: what others do in the folder while this file is written must be noticed.
  NoteCreated(native);
  return Status::Success();
}

Status NewFile::CreateBeside(const std::string& native, mode_t mode) {
  do {
    temporary_name_ = TemporaryName(native);
    fd_ = UniqueFd(open(temporary_name_.c_str(), kCreateFlags, mode));
  } while (!fd_.valid() && errno == EEXIST);
  name_ = native;
  if (fd_.valid()) return Status::Success();
  temporary_name_.clear();
  return LastFailure();
}

Status NewFile::Commit() {
  if (fd_.Close() != 0) return LastFailure();
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
  const Result<std::string> native = EndOfLinks(RealPath(path));
  if (!native.ok()) return native.status;
  struct stat replaced {};
  const bool exists = stat(native.value.c_str(), &replaced) == 0;
  Status status = exists ? MayReplace(native.value, replaced) : Status::Success();
  NewFile file;
  if (status.ok()) status = file.CreateBeside(native.value, 0666);
  if (status.ok()) status = StatusOfResult(WriteAll(file.fd(), content.data(), content.size()));
  if (status.ok() && exists) status = TakeOver(file.fd(), replaced);
  if (status.ok() && exists && times == FileTimes::kKept) KeepTimes(file.fd(), replaced);
  return status.ok() ? file.Commit() : status;
}

}  // namespace discwright::host
