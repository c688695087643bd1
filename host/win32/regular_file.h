// Opens, reads and writes regular files only: a device behind a name must never be touched.
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

// Opens a file, links followed. `access` and `disposition` (OPEN_EXISTING, OPEN_ALWAYS, CREATE_NEW) as for
// CreateFileA. `share` says what other programs may do with the file meanwhile; `flags` are CreateFileA's, too.
RegularFile OpenRegular(const AnsiPath& path, DWORD access, DWORD disposition, DWORD share, DWORD flags = 0);

// Success unless something stands at the path that is no regular file.
Status OnlyRegular(const AnsiPath& path);

// Reads the next bytes of an open file and gives their number, which is less than there is room for only at its end.
Result<std::size_t> ReadSome(HANDLE file, std::span<std::byte> bytes);
Status WriteAll(HANDLE file, std::span<const std::byte> bytes);

// Where the next bytes are read or written. Windows 95, 98 and Me know no other way to read or write at a position.
Status MoveTo(HANDLE file, std::uint64_t position);

// Cuts or extends a file.
Status SetSize(HANDLE file, std::uint64_t size);

// An open regular file as the core reads and writes it.
std::unique_ptr<BinaryFile> WrapBinaryFile(OwnedHandle file);

}  // namespace discwright::host
