// Reading and replacing files as a whole.
#include <sys/stat.h>
#include <climits>

#include <array>
#include <cerrno>

#include "host/files.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"
#include "host/posix/new_file.h"
#include "host/posix/regular_file.h"

namespace discwright::host {
namespace {

// Where a chain of links ends, whether or not something is there: a user's linked settings file stays a link.
std::string EndOfLinks(std::string native, Status& status) {
  constexpr int kMostLinks = 40;  // the system's own limit
  for (int i = 0; i < kMostLinks; ++i) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = readlink(native.c_str(), target.data(), target.size());
    if (length < 0) return native;
    const std::string_view next(target.data(), static_cast<std::size_t>(length));
    native = next.starts_with('/') ? std::string(next) : NativeJoin(NativeFolder(native), next);
  }
  status = StatusOf(ELOOP);
  return native;
}

// Gives the new file the owner and mode of the one that it replaces.
Status TakeOver(int fd, const struct stat& replaced) {
  // Only an administrator may give files away, and for anybody else the owner is right already.
  if (fchown(fd, replaced.st_uid, replaced.st_gid) != 0 && errno != EPERM) return LastFailure();
  return StatusOfResult(fchmod(fd, replaced.st_mode & 07777u));
}

// A file system that has no room for the times does not spoil the content.
void KeepTimes(int fd, const struct stat& replaced) {
  const std::array<timespec, 2> times{replaced.st_atim, replaced.st_mtim};
  static_cast<void>(futimens(fd, times.data()));
}

// Whether the existing file may be replaced; its folder alone would allow that even for a read-only file.
Status MayReplace(const std::string& native, const struct stat& facts) {
  if (!S_ISREG(facts.st_mode)) return NotARegularFile(S_ISDIR(facts.st_mode));
  return StatusOfResult(access(native.c_str(), W_OK));
}

}  // namespace

Status ReadWholeFile(std::string_view path, std::string& content) {
  content.clear();
  const RegularFile file = OpenRegular(RealPath(path), O_RDONLY);
  if (!file.status.ok()) return file.status;
  // The size is only a hint: files that the kernel makes up have none. One byte more leaves room to see the end.
  content.resize(static_cast<std::size_t>(file.facts.st_size) + 1);
  std::size_t filled = 0;
  for (;;) {
    const long got = ReadSome(file.fd.get(), content.data() + filled, content.size() - filled);
    if (got < 0) {
      Status failure = LastFailure();
      content.clear();
      return failure;
    }
    filled += static_cast<std::size_t>(got);
    if (got == 0) break;
    if (filled == content.size()) content.resize(content.size() + kReadPiece);
  }
  content.resize(filled);
  return Status::Success();
}

Status WriteWholeFile(std::string_view path, std::string_view content, FileTimes times) {
  Status status;
  const std::string native = EndOfLinks(RealPath(path), status);
  struct stat replaced {};
  const bool exists = stat(native.c_str(), &replaced) == 0;
  if (status.ok() && exists) status = MayReplace(native, replaced);
  NewFile file;
  if (status.ok()) status = file.CreateBeside(native, 0666);
  if (status.ok()) status = StatusOfResult(WriteAll(file.fd(), content.data(), content.size()));
  if (status.ok() && exists) status = TakeOver(file.fd(), replaced);
  if (status.ok() && exists && times == FileTimes::kKept) KeepTimes(file.fd(), replaced);
  return status.ok() ? file.Commit() : status;
}

}  // namespace discwright::host
