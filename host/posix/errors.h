// Converts errno values to the host's Status. Call LastFailure() directly after a system call that has failed.
#pragma once

#include "host/status.h"

namespace discwright::host {

// The failure for the errno value `error`, with the system's own sentence.
Status StatusOf(int error);

// The failure for the value that the last system call left in errno.
Status LastFailure();

// A success when a system call's result is 0 or above, otherwise the failure for errno.
Status StatusOfResult(long result);

// The failure of opening something that is not a regular file: a folder, or else a device, pipe or socket.
Status NotARegularFile(bool is_folder);

}  // namespace discwright::host
