// An open file as the core reads and writes it.
#pragma once

#include <memory>

#include "host/files.h"
#include "host/win32/owned_handle.h"

namespace discwright::host {

// Takes an open regular file over.
std::unique_ptr<BinaryFile> WrapBinaryFile(OwnedHandle file);

}  // namespace discwright::host
