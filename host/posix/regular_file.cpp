// Opens regular files, and reads and writes them.
#include "host/posix/regular_file.h"

#include <cerrno>

#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"

namespace discwright::host {
namespace {

RegularFile Refused(Status status) { return {UniqueFd(), {}, std::move(status)}; }

// Advances by the number of bytes that a call has moved. Returns false when the call failed and must not be repeated.
template <typename Bytes>
bool Advance(ssize_t done, std::int64_t& position, Bytes& bytes) {
  if (done < 0) return errno == EINTR;
  position += done;
  bytes = bytes.subspan(static_cast<std::size_t>(done));
  return true;
}

class PosixBinaryFile : public BinaryFile {
 public:
  explicit PosixBinaryFile(UniqueFd fd) : fd_(std::move(fd)) {}

  Result<std::int64_t> Length() override {
    struct stat facts {};
    if (fstat(fd_.get(), &facts) != 0) return LastFailure();
    return facts.st_size;
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
    return host::WriteAt(fd_.get(), position, bytes);
  }

 private:
  UniqueFd fd_;
};

// Creates and opens a file that does not exist yet.
RegularFile CreateRegular(const std::string& native) {
  RegularFile file;
  file.fd = UniqueFd(open(native.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666));
  if (!file.fd.valid() || fstat(file.fd.get(), &file.facts) != 0) {
    file.status = LastFailure();
  } else if (file.status = CheckRegular(file.facts); file.status.ok()) {
    NoteCreated(native);
  }
  return file;
}

}  // namespace

RegularFile OpenRegular(const std::string& native, int flags) {
  RegularFile file;
  // The kind is checked before the file is opened, because opening a device may already have an effect. O_NONBLOCK
  // prevents waiting for the other end of a pipe that takes the file's place in between.
  if (stat(native.c_str(), &file.facts) != 0) return Refused(LastFailure());
  if (Status status = CheckRegular(file.facts); !status.ok()) return Refused(std::move(status));
  file.fd = UniqueFd(open(native.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.fd.valid() || fstat(file.fd.get(), &file.facts) != 0) return Refused(LastFailure());
  if (Status status = CheckRegular(file.facts); !status.ok()) return Refused(std::move(status));
  return file;
}

long ReadSome(int fd, char* bytes, std::size_t count) {
  ssize_t done = 0;
  do {
    done = read(fd, bytes, count);
  } while (done < 0 && errno == EINTR);
  return done;
}

int WriteAll(int fd, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t done = write(fd, bytes, count);
    if (done < 0 && errno != EINTR) return -1;
    if (done > 0) {
      bytes += done;
      count -= static_cast<std::size_t>(done);
    }
  }
  return 0;
}

Status CheckRegular(const struct stat& facts) {
  return S_ISREG(facts.st_mode) ? Status::Success() : NotARegularFile(S_ISDIR(facts.st_mode));
}

Status WriteAt(int fd, std::int64_t position, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t done = pwrite(fd, bytes.data(), bytes.size(), position);
    if (!Advance(done, position, bytes)) return LastFailure();
  }
  return Status::Success();
}

std::unique_ptr<BinaryFile> WrapBinaryFile(UniqueFd fd) { return std::make_unique<PosixBinaryFile>(std::move(fd)); }

Result<std::unique_ptr<BinaryFile>> OpenBinary(std::string_view path, OpenMode mode) {
  const bool writes = mode != OpenMode::kRead;
  const Result<std::string> found = writes ? RealPathOfNew(path) : RealPath(path);
  if (!found.ok()) return found.status;
  const std::string& native = found.value;
  struct stat facts {};
  const bool is_link = lstat(native.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode);
  if (mode == OpenMode::kCreateEmpty && is_link && unlink(native.c_str()) != 0) return LastFailure();
  RegularFile file = OpenRegular(native, writes ? O_RDWR : O_RDONLY);
  if (writes && file.status.error == ErrorClass::kNotFound) file = CreateRegular(native);
  // The file is emptied only here, where it is known to be a regular file.
  if (file.status.ok() && mode == OpenMode::kCreateEmpty && file.facts.st_size > 0) {
    file.status = StatusOfResult(ftruncate(file.fd.get(), 0));
  }
  if (!file.status.ok()) return file.status;
  return WrapBinaryFile(std::move(file.fd));
}

Status CheckReadable(std::string_view path) {
  const Result<std::string> native = RealPath(path);
  return native.ok() ? OpenRegular(native.value, O_RDONLY).status : native.status;
}

Result<std::string> ReadWholeFile(std::string_view path, std::int64_t most) {
  const Result<std::string> native = RealPath(path);
  if (!native.ok()) return native.status;
  const RegularFile file = OpenRegular(native.value, O_RDONLY);
  if (!file.status.ok()) return file.status;
  if (file.facts.st_size > most) return TooLarge(file.facts.st_size, most);
  // The size is only a hint: files that the kernel generates have none. The additional byte leaves room to find the
  // end.
  std::string content(static_cast<std::size_t>(file.facts.st_size) + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    const long got = ReadSome(file.fd.get(), content.data() + filled, content.size() - filled);
    if (got < 0) return LastFailure();
    filled += static_cast<std::size_t>(got);
    if (got == 0) break;
    if (const auto size = static_cast<std::int64_t>(filled); size > most) return TooLarge(size, most);
    if (filled == content.size()) content.resize(content.size() + kReadPiece);
  }
  content.resize(filled);
  return content;
}

}  // namespace discwright::host
