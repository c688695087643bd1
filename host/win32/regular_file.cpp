// Opens regular files and moves their bytes.
#include "host/win32/regular_file.h"

#include <algorithm>

#include "host/win32/attributes.h"
#include "host/win32/errors.h"

namespace discwright::host {
namespace {

// One call's bytes: a larger buffer is more than some network drives take.
constexpr std::size_t kLargestCall = std::size_t{16} << 20;

DWORD CallSize(std::size_t left) { return static_cast<DWORD>(std::min(left, kLargestCall)); }

}  // namespace

Status OnlyRegular(const DoorPath& path) {
  if (!path.status.ok()) return path.status;
  return IsFolder(path) || IsDevicePath(path.core) ? NotARegularFile() : Status::Success();
}

RegularFile OpenRegular(const DoorPath& path, DWORD access, DWORD disposition, DWORD share, DWORD flags) {
  RegularFile file;
  // Asked before opening, because opening a device may already do something.
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

Status ReadSome(HANDLE file, std::span<std::byte> bytes, std::size_t& count) {
  for (count = 0; count < bytes.size();) {
    DWORD got = 0;
    if (ReadFile(file, bytes.data() + count, CallSize(bytes.size() - count), &got, nullptr) == 0) return LastFailure();
    if (got == 0) break;
    count += got;
  }
  return Status::Success();
}

Status WriteAll(HANDLE file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    DWORD done = 0;
    if (WriteFile(file, bytes.data(), CallSize(bytes.size()), &done, nullptr) == 0) return LastFailure();
    // Some systems tell of a full disk only by this.
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

}  // namespace discwright::host
