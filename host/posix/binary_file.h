// An open file as the core reads and writes it.
#pragma once

#include <memory>

#include "host/files.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {

// Takes an open regular file over.
std::unique_ptr<BinaryFile> WrapBinaryFile(UniqueFd fd);

}  // namespace discwright::host
