// Copies files through the kernel, and reports progress after every piece.
#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <memory>

#include "host/files.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"
#include "host/posix/new_file.h"
#include "host/posix/regular_file.h"

namespace discwright::host {
namespace {

enum class Target {
  kNew,       // an existing file is refused
  kReplaced,  // an existing file is replaced by the complete copy; without one, the copy grows under its own name
  kWhole,     // the copy appears when it is complete, and replaces an existing file
};

// Large enough that reporting progress costs nothing, and small enough that the progress bar moves even for a slow
// disc.
constexpr std::size_t kCopyPiece = std::size_t{16} << 20;

bool KernelCannotCopy(int error) {
  return error == EXDEV || error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM;
}

Status Stopped() { return StatusOf(ECANCELED); }

// Copies the content of one open file to another, piece by piece.
class ContentCopy {
 public:
  ContentCopy(int from, int to, const CopyRoutine& routine) : from_(from), to_(to), routine_(routine) {}

  Status Run(std::int64_t size) {
    if (!Tell(CopyEvent::kStreamSwitch)) return Stopped();
    for (;;) {
      const long moved = MovePiece();
      if (moved < 0) return LastFailure();
      transferred_ += moved;
      const bool is_end = moved == 0 || transferred_ == size;
      // An empty read at the end is reported only when the whole file is empty.
      if ((moved > 0 || transferred_ == 0) && !Tell(CopyEvent::kChunkFinished)) return Stopped();
      if (is_end) return Status::Success();
    }
  }

 private:
  bool Tell(CopyEvent event) const { return !routine_ || routine_(event, transferred_); }

  // Returns the number of bytes moved, 0 at the end of the source, or -1 with errno.
  long MovePiece() {
    if (by_kernel_) {
      const ssize_t moved = copy_file_range(from_, nullptr, to_, nullptr, kCopyPiece, 0);
      if (moved > 0 || (moved < 0 && !KernelCannotCopy(errno) && errno != EINTR)) return moved;
      // The kernel also returns 0 for files that it generates while they are read. So after 0, read() decides whether
      // this is the end.
      by_kernel_ = false;
    }
    return MoveByHand();
  }

  long MoveByHand() {
    if (bytes_ == nullptr) bytes_ = std::make_unique<std::array<char, kReadPiece>>();
    long moved = 0;
    while (moved < static_cast<long>(kCopyPiece)) {
      const long got = ReadSome(from_, bytes_->data(), bytes_->size());
      if (got == 0) break;
      if (got < 0 || WriteAll(to_, bytes_->data(), static_cast<std::size_t>(got)) != 0) return -1;
      moved += got;
    }
    return moved;
  }

  int from_;
  int to_;
  const CopyRoutine& routine_;
  std::int64_t transferred_ = 0;
  bool by_kernel_ = true;
  std::unique_ptr<std::array<char, kReadPiece>> bytes_;
};

// Creates the target. Refuses it when it is the source under another name. An existing target is replaced as a name:
// other hard links to it, or the target of a link, keep their content.
Status StartTarget(NewFile& target, const std::string& to, const struct stat& source, Target kind) {
  const mode_t mode = (source.st_mode & 0777u) | S_IRUSR | S_IWUSR;  // the umask also applies, as for any new file
  if (kind != Target::kWhole) {
    Status created = target.Create(to, mode);
    if (created.error != ErrorClass::kExists || kind == Target::kNew) return created;
  }
  struct stat existing {};
  if (stat(to.c_str(), &existing) == 0) {
    if (Status status = CheckRegular(existing); !status.ok()) return status;
    if (existing.st_dev == source.st_dev && existing.st_ino == source.st_ino) {
      return Status::Failure(ErrorClass::kOther, "Source and target are the same file");
    }
  }
  return target.CreateBeside(to, mode);
}

// A failure is ignored, because some file systems cannot store the time.
void KeepTime(int fd, const struct stat& source) {
  const std::array<timespec, 2> times{timespec{0, UTIME_OMIT}, source.st_mtim};
  static_cast<void>(futimens(fd, times.data()));
}

// Most names are spelled as on the disk. So the path is tried in its own spelling before anything is looked up.
RegularFile OpenSource(std::string_view path) {
  RegularFile file = OpenRegular(NativePath(path), O_RDONLY);
  if (file.status.error != ErrorClass::kNotFound) return file;
  const Result<std::string> native = RealPath(path);
  if (native.ok()) return OpenRegular(native.value, O_RDONLY);
  file.status = native.status;
  return file;
}

Status CopyOpenFile(const RegularFile& source, const std::string& to, Target kind, const CopyRoutine& routine) {
  if (!source.status.ok()) return source.status;
  NewFile target;
  Status status = StartTarget(target, to, source.facts, kind);
  if (status.ok()) status = ContentCopy(source.fd.get(), target.fd(), routine).Run(source.facts.st_size);
  if (!status.ok()) return status;
  KeepTime(target.fd(), source.facts);
  return target.Commit();
}

}  // namespace

Status CopyToFreeName(const std::string& from, const std::string& to) {
  return CopyOpenFile(OpenRegular(from, O_RDONLY), to, Target::kNew, nullptr);
}

Status CopyFileWithProgress(std::string_view from, std::string_view to, const CopyRoutine& routine) {
  const Result<std::string> target = RealPathOfNew(to);
  return target.ok() ? CopyOpenFile(OpenSource(from), target.value, Target::kReplaced, routine) : target.status;
}

Status CopyWholeFile(std::string_view from, std::string_view to) {
  const Result<std::string> target = RealPathOfNew(to);
  return target.ok() ? CopyOpenFile(OpenSource(from), target.value, Target::kWhole, nullptr) : target.status;
}

}  // namespace discwright::host
