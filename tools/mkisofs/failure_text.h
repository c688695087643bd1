// How the program words a failure of the system.
#pragma once

#include <string>

#include "host/status.h"

namespace discwright::tools::mkisofs {

// A mastering monitor looks for exactly these words on a full disk, in whatever language the system speaks.
inline std::string TextOf(const host::Status& status) {
  return status.error == host::ErrorClass::kDiskFull ? "No space left on device" : status.cause;
}

}  // namespace discwright::tools::mkisofs
