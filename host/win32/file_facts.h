// Describes files and folders: whether a path exists, what it is, and which file it is. Call FactsOfPath, FactsOfHandle
// or one of the single questions.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "host/status.h"
#include "host/win32/native_path.h"
#include "host/win32/owned_handle.h"

namespace discwright::host {

// Whether a file, a folder or a link exists at the path. A link whose target is missing exists, too.
bool IsThere(const AnsiPath& path);

bool IsFolder(const AnsiPath& path);

// Clears the read-only mark, and no other mark. This mark prevents a file from being written, replaced or deleted.
Status MakeWritable(const AnsiPath& path);

struct NativeFacts {
  DWORD attributes = 0;
  std::uint64_t size = 0;      // bytes
  std::uint64_t modified = 0;  // 100 nanoseconds since 1601, UTC
  std::uint64_t volume = 0;
  std::uint64_t number = 0;  // the number of the file on its volume
  std::uint64_t links = 1;

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsSameFile(const NativeFacts& other) const { return volume == other.volume && number == other.number; }
  std::int64_t ModifiedSeconds() const;      // since 1970, rounded down
  std::int64_t ModifiedNanoseconds() const;  // since 1970
};

// The share mode that permits other programs to do everything with an open file that this Windows can permit.
DWORD ShareEverything();

// The size of an open file in bytes.
Result<std::int64_t> SizeOf(HANDLE file);

Result<NativeFacts> FactsOfHandle(HANDLE file);

enum class Links { kFollow, kTake };  // kTake: describes the link itself

// The facts of a file or folder. Windows 95, 98 and Me cannot identify a file, and the NT family cannot when it denies
// access. In these cases volume and number are made from the path.
Result<NativeFacts> FactsOfPath(const AnsiPath& path, Links links);

// Looks up one file or folder in the listing of its folder. Returns false when it is not there, as for the root of a
// drive.
bool FindOne(const std::string& native, WIN32_FIND_DATAA& found);

std::uint64_t SizeOf(const WIN32_FIND_DATAA& found);  // bytes

// Whether the entry is a symbolic link or junction. Other reparse points count as ordinary files and folders.
bool IsLink(const WIN32_FIND_DATAA& found);
bool IsLink(const AnsiPath& path);

}  // namespace discwright::host
