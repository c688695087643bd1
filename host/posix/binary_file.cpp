// Files read and written at positions.
#include "host/posix/binary_file.h"

#include <sys/stat.h>

#include <cerrno>

#include "host/files.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/regular_file.h"

namespace discwright::host {
namespace {

class PosixBinaryFile : public BinaryFile {
 public:
  explicit PosixBinaryFile(UniqueFd fd) : fd_(std::move(fd)) {}

  std::int64_t Length() override {
    struct stat facts {};
    return fstat(fd_.get(), &facts) == 0 ? facts.st_size : -1;
  }

  Status ReadAt(std::int64_t position, std::span<std::byte> bytes) override {
    while (!bytes.empty()) {
      const ssize_t done = pread(fd_.get(), bytes.data(), bytes.size(), position);
      if (done == 0) return Status::Failure(ErrorClass::kOther, "Unexpected end of file");
      if (!Advance(done, position, bytes)) return LastFailure();
    }
    return Status::Success();
  }

  Status WriteAt(std::int64_t position, std::span<const std::byte> bytes) override {
    while (!bytes.empty()) {
      const ssize_t done = pwrite(fd_.get(), bytes.data(), bytes.size(), position);
      if (!Advance(done, position, bytes)) return LastFailure();
    }
    return Status::Success();
  }

 private:
  // Moves on by what a call has done; false when it failed for good.
  template <typename Bytes>
  static bool Advance(ssize_t done, std::int64_t& position, Bytes& bytes) {
    if (done < 0) return errno == EINTR;
    position += done;
    bytes = bytes.subspan(static_cast<std::size_t>(done));
    return true;
  }

  UniqueFd fd_;
};

// A file that does not exist yet.
RegularFile CreateRegular(const std::string& native) {
  RegularFile file;
  file.fd = UniqueFd(open(native.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666));
  if (!file.fd.valid() || fstat(file.fd.get(), &file.facts) != 0) {
    file.status = LastFailure();
  } else if (!S_ISREG(file.facts.st_mode)) {
    file.status = NotARegularFile(false);
  } else {
    NoteCreated(native);
  }
  return file;
}

}  // namespace

std::unique_ptr<BinaryFile> WrapBinaryFile(UniqueFd fd) { return std::make_unique<PosixBinaryFile>(std::move(fd)); }

std::unique_ptr<BinaryFile> OpenBinary(std::string_view path, OpenMode mode, Status& status) {
  const std::string native = RealPath(path);
  const bool writes = mode != OpenMode::kRead;
  RegularFile file = OpenRegular(native, writes ? O_RDWR : O_RDONLY);
  if (writes && file.status.error == ErrorClass::kNotFound) file = CreateRegular(native);
  // Emptied only now: whatever was opened is known to be a file.
  if (file.status.ok() && mode == OpenMode::kCreateEmpty && file.facts.st_size > 0) {
    file.status = StatusOfResult(ftruncate(file.fd.get(), 0));
  }
  status = file.status;
  return status.ok() ? WrapBinaryFile(std::move(file.fd)) : nullptr;
}

}  // namespace discwright::host
