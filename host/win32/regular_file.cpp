// Opens regular files, and reads and writes them.
#include "host/win32/regular_file.h"

#include <algorithm>
#include <array>

#include "base/paths.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"

namespace discwright::host {
namespace {

// The most bytes that one call moves. Some network drives do not accept larger buffers.
constexpr std::size_t kLargestCall = std::size_t{16} << 20;

DWORD CallSize(std::size_t left) { return static_cast<DWORD>(std::min(left, kLargestCall)); }

class WindowsBinaryFile : public BinaryFile {
 public:
  explicit WindowsBinaryFile(OwnedHandle file) : file_(std::move(file)) {}

  Result<std::int64_t> Length() override { return SizeOf(file_.get()); }

  Status ReadAt(std::int64_t position, std::span<std::byte> bytes) override {
    if (Status status = MoveTo(file_.get(), static_cast<std::uint64_t>(position)); !status.ok()) return status;
    const Result<std::size_t> count = ReadSome(file_.get(), bytes);
    if (!count.ok() || count.value == bytes.size()) return count.status;
    return Status::Failure(ErrorClass::kOther, "Unexpected end of file");
  }

  Status WriteAt(std::int64_t position, std::span<const std::byte> bytes) override {
    Status status = bytes.empty() ? Status::Success() : FillUpTo(position);
    if (status.ok()) status = MoveTo(file_.get(), static_cast<std::uint64_t>(position));
    return status.ok() ? WriteAll(file_.get(), bytes) : status;
  }

 private:
  // Windows 95, 98 and Me do not clear the gap between the end of a file and data that is written behind it. The gap
  // would contain what the disk held before.
  Status FillUpTo(std::int64_t position) {
    static constexpr std::array<std::byte, 4096> kZeros{};
    const Result<std::int64_t> length = Length();
    if (!length.ok()) return length.status;
    std::int64_t end = length.value;
    if (end >= position) return Status::Success();
    Status status = MoveTo(file_.get(), static_cast<std::uint64_t>(end));
    while (status.ok() && end < position) {
      const std::int64_t count = std::min<std::int64_t>(position - end, kZeros.size());
      status = WriteAll(file_.get(), std::span(kZeros).first(static_cast<std::size_t>(count)));
      end += count;
    }
    return status;
  }

  OwnedHandle file_;
};

}  // namespace

Status OnlyRegular(const AnsiPath& path) {
  if (!path.status.ok()) return path.status;
  return IsFolder(path) || base::IsDevicePath(path.core) ? NotARegularFile() : Status::Success();
}

RegularFile OpenRegular(const AnsiPath& path, DWORD access, DWORD disposition, DWORD share, DWORD flags) {
  RegularFile file;
  // The kind is checked before the file is opened, because opening a device may already have an effect.
  file.status = OnlyRegular(path);
  if (!file.status.ok()) return file;
  file.handle = OwnedHandle(
      CreateFileA(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL | flags, nullptr));
  if (!file.handle.valid()) {
    file.status = LastFailure();
  } else if (GetFileType(file.handle.get()) != FILE_TYPE_DISK) {
    file.handle.Close();
    file.status = NotARegularFile();
  }
  return file;
}

Result<std::size_t> ReadSome(HANDLE file, std::span<std::byte> bytes) {
  std::size_t count = 0;
  while (count < bytes.size()) {
    DWORD got = 0;
    if (ReadFile(file, bytes.data() + count, CallSize(bytes.size() - count), &got, nullptr) == 0) return LastFailure();
    if (got == 0) break;
    count += got;
  }
  return count;
}

Status WriteAll(HANDLE file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    DWORD done = 0;
    if (WriteFile(file, bytes.data(), CallSize(bytes.size()), &done, nullptr) == 0) return LastFailure();
    // Some systems report a full disk only in this way.
    if (done == 0) return StatusOf(ERROR_DISK_FULL);
    bytes = bytes.subspan(done);
  }
  return Status::Success();
}

Status MoveTo(HANDLE file, std::uint64_t position) {
  LONG high = static_cast<LONG>(position >> 32);
  SetLastError(NO_ERROR);
  const DWORD low = SetFilePointer(file, static_cast<LONG>(position & 0xFFFFFFFF), &high, FILE_BEGIN);
  return low != INVALID_SET_FILE_POINTER || GetLastError() == NO_ERROR ? Status::Success() : LastFailure();
}

Status SetSize(HANDLE file, std::uint64_t size) {
  const Status moved = MoveTo(file, size);
  return moved.ok() ? StatusOfResult(SetEndOfFile(file)) : moved;
}

std::unique_ptr<BinaryFile> WrapBinaryFile(OwnedHandle file) {
  return std::make_unique<WindowsBinaryFile>(std::move(file));
}

Result<std::unique_ptr<BinaryFile>> OpenBinary(std::string_view path, OpenMode mode) {
  const bool writes = mode != OpenMode::kRead;
  const DWORD access = writes ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
  if (mode == OpenMode::kCreateEmpty && IsLink(AnsiPath(path))) {
    if (Status removed = RemoveFile(path); !removed.ok()) return removed;
  }
  RegularFile file = OpenRegular(AnsiPath(path), access, writes ? OPEN_ALWAYS : OPEN_EXISTING, ShareEverything());
  // The file is emptied only here, where it is known to be a regular file. CREATE_ALWAYS would also refuse hidden
  // files.
  if (file.status.ok() && mode == OpenMode::kCreateEmpty) file.status = SetSize(file.handle.get(), 0);
  if (!file.status.ok()) return file.status;
  return WrapBinaryFile(std::move(file.handle));
}

Status CheckReadable(std::string_view path) {
  return OpenRegular(AnsiPath(path), GENERIC_READ, OPEN_EXISTING, ShareEverything()).status;
}

Result<std::string> ReadWholeFile(std::string_view path, std::int64_t most) {
  const RegularFile file = OpenRegular(AnsiPath(path), GENERIC_READ, OPEN_EXISTING, ShareEverything());
  if (!file.status.ok()) return file.status;
  const Result<std::int64_t> size = SizeOf(file.handle.get());
  if (!size.ok()) return size.status;
  if (size.value > most) return TooLarge(size.value, most);
  std::string content(static_cast<std::size_t>(size.value), '\0');
  const Result<std::size_t> count = ReadSome(file.handle.get(), std::as_writable_bytes(std::span(content)));
  if (!count.ok()) return count.status;
  content.resize(count.value);
  return content;
}

}  // namespace discwright::host
