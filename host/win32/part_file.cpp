// Writes a file under a temporary name, and renames it when it is complete.
#include "host/part_file.h"

#include <windows.h>

#include <algorithm>
#include <mutex>

#include "base/paths.h"
#include "base/temporary_names.h"
#include "host/left_files.h"
#include "host/threads.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/new_file.h"
#include "host/win32/regular_file.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

Status Replaced() { return Status::Failure(ErrorClass::kExists, "Another run has replaced the unfinished file"); }

// Whether `path` is the path of the open file. Both are in the same folder, so the volumes are not compared: Wine
// forgets the volume of a file that is renamed while it is open. On Windows 95, 98 and Me no program can rename or
// delete an open file.
bool IsAt(HANDLE file, const AnsiPath& path) {
  if (!IsNtFamily()) return true;
  const Result<NativeFacts> opened = FactsOfHandle(file);
  const Result<NativeFacts> named = FactsOfPath(path, Links::kTake);
  return opened.ok() && named.ok() && opened.value.number == named.value.number;
}

class WindowsPartFile : public PartFile {
 public:
  WindowsPartFile(OwnedHandle file, const AnsiPath& name, const AnsiPath& part)
      : file_(std::move(file)), name_(name), part_(part) {}
  WindowsPartFile(const WindowsPartFile&) = delete;
  WindowsPartFile& operator=(const WindowsPartFile&) = delete;
  ~WindowsPartFile() override {
    if (!is_unfinished_) return;
    const bool is_mine = !file_.valid() || IsAt(file_.get(), part_);
    // The NT family could also delete the file while it is open, but the name would stay until the file is closed.
    file_.Close();
    if (is_mine) DeleteFileA(part_.c_str());
  }

  Status WriteAt(std::uint64_t position, std::span<const std::uint8_t> bytes) override {
    const std::lock_guard lock(mutex_);
    Status status = MoveTo(file_.get(), position);
    if (status.ok()) status = WriteAll(file_.get(), std::as_bytes(bytes));
    if (status.ok() && !bytes.empty()) end_ = std::max(end_, position + bytes.size());
    return status;
  }

  Status Commit() override {
    Status status = SetSize(file_.get(), end_);
    if (status.ok()) status = StatusOfResult(FlushFileBuffers(file_.get()));
    if (status.ok()) status = IsNtFamily() ? CommitWhileOpen() : CommitClosed();
    is_unfinished_ = !status.ok();
    return status;
  }

 private:
  // Another run may put its own file under the part's name at any time. So the part first gets a name that no other run
  // uses. Then it is checked whose file it is.
  Status CommitWhileOpen() {
    const AnsiPath mine(TemporaryName(name_));
    if (!mine.status.ok()) return mine.status;
    if (!IsAt(file_.get(), part_)) return Replaced();
    if (MoveFileA(part_.c_str(), mine.c_str()) == 0)
      return GetLastError() == ERROR_FILE_NOT_FOUND ? Replaced() : LastFailure();
    if (!IsAt(file_.get(), mine)) {
      MoveFileA(mine.c_str(), part_.c_str());
      return Replaced();
    }
    part_ = mine;
    Status status = MoveOver(mine, name_);
    if (status.ok()) file_.Close();
    return status;
  }

  Status CommitClosed() {
    file_.Close();
    return MoveOver(part_, name_);
  }

  Mutex mutex_;  // is held from moving to a position to the end of writing there
  OwnedHandle file_;
  AnsiPath name_;
  AnsiPath part_;  // the path until the file has its final name
  std::uint64_t end_ = 0;
  bool is_unfinished_ = true;
};

// Deletes an old part. It is not reused, because another run may still have it open. On the NT family a deleted file
// keeps its name until it is closed, so it is renamed first.
Status Clear(const AnsiPath& part) {
  Status status = OnlyRegular(part);
  if (!status.ok()) return status;
  if (!IsThere(part)) return Status::Success();
  if (!IsNtFamily()) return DeleteForSure(part);
  const AnsiPath aside(TemporaryName(part));
  if (!aside.status.ok()) return aside.status;
  if (MoveFileA(part.c_str(), aside.c_str()) == 0) return LastFailure();
  return DeleteForSure(aside);
}

// Returns false when the room on the disk is unknown, as on the first Windows 95.
bool DiskIsTooSmall(const AnsiPath& file, std::uint64_t size) {
  using Call = decltype(GetDiskFreeSpaceExA);
  static Call* const look = NewerCall<Call>("kernel32.dll", "GetDiskFreeSpaceExA");
  const AnsiPath folder(base::ParentFolder(AbsolutePath(file.core)));
  ULARGE_INTEGER room{};
  // The call accepts a share of another computer only with a separator at its end.
  return look != nullptr && look((folder.native + "\\").c_str(), &room, nullptr, nullptr) != 0 && room.QuadPart < size;
}

// The largest file that FAT can store. For a larger one the system reports a full disk, although there is room.
constexpr std::uint64_t kLargestOnFat = 0xFFFFFFFF;  // bytes

// Reserves room for `size` bytes. Fails only when the disk or the file system is too small, and not when room cannot be
// reserved. The disk is asked first, because some file systems only record the size.
Status SetAside(HANDLE file, const AnsiPath& path, std::uint64_t size) {
  if (DiskIsTooSmall(path, size)) return StatusOf(ERROR_DISK_FULL);
  const bool is_large = size > kLargestOnFat;
  const Status status = size == 0 ? Status::Success() : SetSize(file, size);
  if (status.error == ErrorClass::kDiskFull) return is_large ? FileMayNotGrow() : status;
  return status.error == ErrorClass::kTooLarge ? status : Status::Success();
}

}  // namespace

Result<std::unique_ptr<PartFile>> CreatePartFile(std::string_view path, std::uint64_t size) {
  const AnsiPath name(path);
  if (Status status = OnlyRegular(name); !status.ok()) return status;
  const AnsiPath part(base::SiblingOf(name.core, base::PartName(base::NameOf(name.core))));
  RemoveLeftFiles(base::ParentFolder(AbsolutePath(name.core)));
  const DWORD share = IsNtFamily() ? FILE_SHARE_READ | FILE_SHARE_DELETE : FILE_SHARE_READ;
  RegularFile file;
  do {
    if (Status status = Clear(part); !status.ok()) return status;
    file = OpenRegular(part, GENERIC_WRITE, CREATE_NEW, share);
  } while (file.status.error == ErrorClass::kExists);
  if (!file.status.ok()) return file.status;
  Status status = SetAside(file.handle.get(), part, size);
  // After a failure, the destructor of this object deletes the file.
  auto made = std::make_unique<WindowsPartFile>(std::move(file.handle), name, part);
  if (!status.ok()) return status;
  return made;
}

}  // namespace discwright::host
