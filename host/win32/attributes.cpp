// Asks for attributes and clears the one that is in the way.
#include "host/win32/attributes.h"

#include <windows.h>

#include "host/win32/errors.h"

namespace discwright::host {

bool IsThere(const DoorPath& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

bool IsFolder(const DoorPath& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

Status MakeWritable(const DoorPath& path) {
  if (!path.status.ok()) return path.status;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return LastFailure();
  if ((attributes & FILE_ATTRIBUTE_READONLY) == 0) return Status::Success();
  return StatusOfResult(SetFileAttributesA(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY}));
}

}  // namespace discwright::host
