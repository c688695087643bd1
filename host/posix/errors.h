// Turning errno into the host's Status.
#pragma once

#include "host/status.h"

namespace discwright::host {

// The failure that errno value `error` stands for, with the system's own sentence.
Status StatusOf(int error);

// The failure that the last system call left in errno.
Status LastFailure();

// Success for a system call's result of 0 or above, else its failure from errno.
Status StatusOfResult(long result);

// The failure of opening something that is no regular file: a folder, or else a device, pipe or socket.
Status NotARegularFile(bool is_folder);

}  // namespace discwright::host
