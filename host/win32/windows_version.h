// Tells which Windows this is, and finds calls that not every Windows has. These calls are looked up while the program
// runs, so that the program can be loaded on every Windows.
#pragma once

#include <windows.h>

namespace discwright::host {

// False on Windows 95, 98 and Me, which have no links, cannot open folders, and cannot rename a file over another one.
bool IsNtFamily();

// Returns the call `name` of a system library (for example "kernel32.dll"), or null where this Windows lacks it. The
// library stays loaded. Pass the type of the declared call: NewerCall<decltype(CopyFileExA)>("kernel32.dll",
// "CopyFileExA").
template <typename Call>
Call* NewerCall(const char* library, const char* name) {
  const HMODULE loaded = LoadLibraryA(library);
  if (loaded == nullptr) return nullptr;
  // The cast goes by way of void (*)(), because the compiler allows a cast from this type to any other function type.
  return reinterpret_cast<Call*>(reinterpret_cast<void (*)()>(GetProcAddress(loaded, name)));
}

}  // namespace discwright::host
