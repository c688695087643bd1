// What a running program has started.
#pragma once

#include <windows.h>

#include <vector>

namespace discwright::host {

// The ids of all that the process `id` has started and what these have started, as far as it still runs and its parents
// do; empty where the system does not list its processes (Windows NT 4).
std::vector<DWORD> DescendantsOf(DWORD id);

}  // namespace discwright::host
