// The two ways of copying a file's content.
#pragma once

#include "host/files.h"
#include "host/win32/native_path.h"

namespace discwright::host {

// Both make the copy `to`, which is replaced if it is there, with the content, the modification time and the attributes
// of `from`, and tell the routine of every event. A failure may leave a part.
Status CopyBySystem(const DoorPath& from, const DoorPath& to, const CopyRoutine& routine);
// For Windows 95, 98 and Me, whose own copy tells nothing of its progress.
Status CopyByHand(const DoorPath& from, const DoorPath& to, const CopyRoutine& routine);

}  // namespace discwright::host
