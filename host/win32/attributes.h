// The attributes of files and folders; a link's are its own.
#pragma once

#include "host/status.h"
#include "host/win32/native_path.h"

namespace discwright::host {

// Whether anything stands at the path, be it a link that leads nowhere.
bool IsThere(const DoorPath& path);

bool IsFolder(const DoorPath& path);

// Clears the read-only mark, which keeps a file from being written, replaced or deleted, and no other.
Status MakeWritable(const DoorPath& path);

}  // namespace discwright::host
