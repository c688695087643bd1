// Which Windows this is, and calls that not every Windows has: they are looked up while the program runs, so that it
// loads everywhere.
#pragma once

#include <windows.h>

namespace discwright::host {

// False on Windows 95, 98 and Me, which have no links, no opening of folders and no renaming over a file.
bool IsNtFamily();

// The call `name` of a library of the system ("kernel32.dll"), or null where this Windows lacks it. The library stays
// loaded. Give the type of the declared call: NewerCall<decltype(CopyFileExA)>("kernel32.dll", "CopyFileExA").
template <typename Call>
Call* NewerCall(const char* library, const char* name) {
  const HMODULE loaded = LoadLibraryA(library);
  if (loaded == nullptr) return nullptr;
  // By way of void (*)(), from which the compiler lets a pointer become one to any other type of function.
  return reinterpret_cast<Call*>(reinterpret_cast<void (*)()>(GetProcAddress(loaded, name)));
}

}  // namespace discwright::host
