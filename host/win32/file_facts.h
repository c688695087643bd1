// What the system says of files and folders: whether something is there, what it is, and which file it is.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "host/status.h"
#include "host/win32/native_path.h"
#include "host/win32/owned_handle.h"

namespace discwright::host {

// Whether anything stands at the path, be it a link that leads nowhere.
bool IsThere(const AnsiPath& path);

bool IsFolder(const AnsiPath& path);

// Clears the read-only mark and no other. It keeps a file from being written, replaced or deleted.
Status MakeWritable(const AnsiPath& path);

struct NativeFacts {
  DWORD attributes = 0;
  std::uint64_t size = 0;      // bytes
  std::uint64_t modified = 0;  // 100 nanoseconds since 1601, UTC
  std::uint64_t volume = 0;
  std::uint64_t number = 0;  // on its volume
  std::uint64_t links = 1;

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsSameFile(const NativeFacts& other) const { return volume == other.volume && number == other.number; }
  std::int64_t ModifiedSeconds() const;      // since 1970, rounded down
  std::int64_t ModifiedNanoseconds() const;  // since 1970
};

// What others may do meanwhile to a file that is opened: everything that this Windows lets them.
DWORD ShareEverything();

// The size of an open file in bytes.
Result<std::int64_t> SizeOf(HANDLE file);

Result<NativeFacts> FactsOfHandle(HANDLE file);

enum class Links { kFollow, kTake };  // kTake: the link itself

// Windows 95, 98 and Me cannot say which file it is, nor can the NT family when it denies access. Volume and number are
// then made from the path.
Result<NativeFacts> FactsOfPath(const AnsiPath& path, Links links);

// What the listing says of one file or folder; not of the root of a drive.
bool FindOne(const std::string& native, WIN32_FIND_DATAA& found);

std::uint64_t SizeOf(const WIN32_FIND_DATAA& found);  // bytes

// Whether what was listed is a symbolic link or junction. Other reparse points are files and folders like any other.
bool IsLink(const WIN32_FIND_DATAA& found);
bool IsLink(const AnsiPath& path);

}  // namespace discwright::host
