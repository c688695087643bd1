// Opens, reads and writes regular files only: a device must never be touched. Call OpenRegular and check the status of
// its result.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "host/files.h"
#include "host/status.h"
#include "host/win32/native_path.h"
#include "host/win32/owned_handle.h"

namespace discwright::host {

struct RegularFile {
  OwnedHandle handle;
  Status status;  // not ok: the handle is not valid
};

// Opens a file, with links followed. `access`, `disposition` (for example OPEN_EXISTING) and `flags` are those of
// CreateFileA. `share` says what other programs may do with the file while it is open.
RegularFile OpenRegular(const AnsiPath& path, DWORD access, DWORD disposition, DWORD share, DWORD flags = 0);

// A failure when the path exists and is not a regular file, otherwise a success.
Status OnlyRegular(const AnsiPath& path);

// Reads the next bytes of an open file and returns their number. It is smaller than the size of `bytes` only at the end
// of the file.
Result<std::size_t> ReadSome(HANDLE file, std::span<std::byte> bytes);
Status WriteAll(HANDLE file, std::span<const std::byte> bytes);

// Sets the position at which the next bytes are read or written. Windows 95, 98 and Me have no other way to read or
// write at a position.
Status MoveTo(HANDLE file, std::uint64_t position);

// Shortens or extends a file to `size` bytes.
Status SetSize(HANDLE file, std::uint64_t size);

// Makes a BinaryFile of an open regular file.
std::unique_ptr<BinaryFile> WrapBinaryFile(OwnedHandle file);

}  // namespace discwright::host
