// Writes NAME.part under a lock and renames it to NAME.
#include "host/part_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/regular_file.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {
namespace {

class PosixPartFile : public PartFile {
 public:
  PosixPartFile(UniqueFd fd, std::string name, std::string part)
      : fd_(std::move(fd)), name_(std::move(name)), part_(std::move(part)) {}
  PosixPartFile(const PosixPartFile&) = delete;
  PosixPartFile& operator=(const PosixPartFile&) = delete;
  ~PosixPartFile() override {
    // Removed while the lock is still held: the name cannot be another run's by now.
    if (!part_.empty()) unlink(part_.c_str());
  }

  Status Append(std::span<const std::uint8_t> bytes) override {
    return StatusOfResult(WriteAll(fd_.get(), reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  }

  Status Commit() override {
    // A second descriptor keeps the lock over the first one's close(), which may report what writing could not.
    UniqueFd lock(fcntl(fd_.get(), F_DUPFD_CLOEXEC, 0));
    if (!lock.valid() || fd_.Close() != 0) return LastFailure();
    if (std::rename(part_.c_str(), name_.c_str()) != 0) return LastFailure();
    part_.clear();
    NoteCreated(name_);
    return Status::Success();
  }

 private:
  UniqueFd fd_;
  std::string name_;
  std::string part_;  // empty once it has its name
};

Status OnlyRegular(const std::string& native) {
  struct stat facts {};
  if (stat(native.c_str(), &facts) != 0) return Status::Success();
  return S_ISREG(facts.st_mode) ? Status::Success() : NotARegularFile(S_ISDIR(facts.st_mode));
}

// Whether `fd` is still what stands at `native`: another run may have renamed or removed it before it was locked.
bool IsStillAt(int fd, const std::string& native) {
  struct stat opened {};
  struct stat named {};
  return fstat(fd, &opened) == 0 && lstat(native.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

// The part file, locked and empty.
UniqueFd OpenLocked(const std::string& part, Status& status) {
  for (;;) {
    UniqueFd fd(open(part.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0666));
    struct stat facts {};
    if (!fd.valid() || fstat(fd.get(), &facts) != 0) {
      status = LastFailure();
      return {};
    }
    if (!S_ISREG(facts.st_mode)) {
      status = NotARegularFile(false);
      return {};
    }
    if (flock(fd.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      status = Status::Failure(ErrorClass::kExists, "Another program is writing it");
      return {};
    }
    if (!IsStillAt(fd.get(), part)) continue;
    status = StatusOfResult(ftruncate(fd.get(), 0));
    return fd;
  }
}

}  // namespace

std::unique_ptr<PartFile> CreatePartFile(std::string_view path, Status& status) {
  const std::string name = RealPath(path);
  const std::string part = name + ".part";
  status = OnlyRegular(name);
  if (!status.ok()) return nullptr;
  UniqueFd fd = OpenLocked(part, status);
  return status.ok() ? std::make_unique<PosixPartFile>(std::move(fd), name, part) : nullptr;
}

}  // namespace discwright::host
