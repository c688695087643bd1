// Writes a file under a temporary name, and renames it when it is complete.
#include "host/part_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "base/temporary_names.h"
#include "host/left_files.h"
#include "host/names.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"
#include "host/posix/new_file.h"
#include "host/posix/regular_file.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {
namespace {

Status Replaced() { return Status::Failure(ErrorClass::kExists, "Another run has replaced the unfinished file"); }

class PosixPartFile : public PartFile {
 public:
  PosixPartFile(UniqueFd fd, std::string name, std::string part)
      : fd_(std::move(fd)), name_(std::move(name)), part_(std::move(part)) {}
  PosixPartFile(const PosixPartFile&) = delete;
  PosixPartFile& operator=(const PosixPartFile&) = delete;
  ~PosixPartFile() override {
    if (IsAt(fd_.get(), part_)) unlink(part_.c_str());
  }

  Status WriteAt(std::uint64_t position, std::span<const std::uint8_t> bytes) override {
    return host::WriteAt(fd_.get(), static_cast<std::int64_t>(position), std::as_bytes(bytes));
  }

  Status Commit() override {
    // close() may report errors that writing could not. The second descriptor still identifies the file after it.
    UniqueFd written(fcntl(fd_.get(), F_DUPFD_CLOEXEC, 0));
    if (!written.valid()) return LastFailure();
    std::swap(fd_, written);
    if (written.Close() != 0) return LastFailure();
    // Another run may put its own file under the part's name at any time. So the part first gets a name that no other
    // run uses. Then it is checked whose file it is.
    const std::string mine = TemporaryName(name_);
    if (std::rename(part_.c_str(), mine.c_str()) != 0) return errno == ENOENT ? Replaced() : LastFailure();
    if (!IsAt(fd_.get(), mine)) {
      std::rename(mine.c_str(), part_.c_str());
      return Replaced();
    }
    part_ = mine;
    if (std::rename(mine.c_str(), name_.c_str()) != 0) return LastFailure();
    NoteCreated(name_);
    return Status::Success();
  }

 private:
  UniqueFd fd_;
  std::string name_;
  std::string part_;  // the path until the file has its final name
};

Status OnlyRegular(const std::string& native) {
  struct stat facts {};
  return stat(native.c_str(), &facts) == 0 ? CheckRegular(facts) : Status::Success();
}

// Reserves room for `size` bytes, but does not change the size of the file, because some file systems would write zeros
// up to it.
Status SetAside(int fd, std::uint64_t size) {
  if (size == 0 || fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0) return Status::Success();
  const Status status = LastFailure();
  const bool never_fits = status.error == ErrorClass::kDiskFull || status.error == ErrorClass::kTooLarge;
  return never_fits ? status : Status::Success();
}

}  // namespace

Result<std::unique_ptr<PartFile>> CreatePartFile(std::string_view path, std::uint64_t size) {
  const Result<std::string> native = RealPathOfNew(path);
  if (!native.ok()) return native.status;
  const std::string& name = native.value;
  const std::string part = NativeJoin(NativeFolder(name), base::PartName(NativeName(name)));
  if (Status status = OnlyRegular(name); !status.ok()) return status;
  RemoveLeftFiles(PathFromNative(NativeFolder(name)));
  UniqueFd fd;
  do {
    // An existing file is deleted and not reused, because an earlier run may still have it open.
    if (unlink(part.c_str()) != 0 && errno != ENOENT) break;
    fd = CreateLocked(part, 0666);
  } while (!fd.valid() && errno == EEXIST);
  if (!fd.valid()) return LastFailure();
  Status status = SetAside(fd.get(), size);
  // After a failure, the destructor of this object deletes the file.
  auto file = std::make_unique<PosixPartFile>(std::move(fd), name, part);
  if (!status.ok()) return status;
  return file;
}

}  // namespace discwright::host
