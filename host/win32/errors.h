// Converts the system's error codes to the host's Status. Call LastFailure() directly after a call that has failed.
#pragma once

#include <windows.h>

#include "host/status.h"

namespace discwright::host {

// The failure for an error code: its class and the system's own sentence.
Status StatusOf(DWORD error);

Status LastFailure();

// The status of a call that returns zero when it fails.
Status StatusOfResult(BOOL result);

// The failure for a name or path that the ANSI code page cannot hold.
Status NameNotInCodePage();

Status NotARegularFile();

}  // namespace discwright::host
