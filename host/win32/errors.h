// Failures of the system's calls.
#pragma once

#include <windows.h>

#include "host/status.h"

namespace discwright::host {

// An error code of the system as a status: its class and the system's own sentence for it.
Status StatusOf(DWORD error);

Status LastFailure();

// The status of a call that gives zero when it fails.
Status StatusOfResult(BOOL result);

// For a name or path that the ANSI code page cannot hold.
Status NameNotInCodePage();

Status NotARegularFile();

}  // namespace discwright::host
