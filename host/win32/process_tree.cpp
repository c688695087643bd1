// Walks a snapshot of the system's processes.
#include "host/win32/process_tree.h"

#include <tlhelp32.h>

#include <algorithm>
#include <map>

#include "host/win32/owned_handle.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

// The parent of every process by its id.
std::map<DWORD, DWORD> Parents() {
  static auto* const create = NewerCall<decltype(CreateToolhelp32Snapshot)>("kernel32.dll", "CreateToolhelp32Snapshot");
  static auto* const first = NewerCall<decltype(Process32First)>("kernel32.dll", "Process32First");
  static auto* const next = NewerCall<decltype(Process32Next)>("kernel32.dll", "Process32Next");
  std::map<DWORD, DWORD> parents;
  if (create == nullptr || first == nullptr || next == nullptr) return parents;
  const OwnedHandle snapshot(create(TH32CS_SNAPPROCESS, 0));
  PROCESSENTRY32 process{};
  process.dwSize = sizeof(process);
  if (!snapshot.valid() || first(snapshot.get(), &process) == 0) return parents;
  do {
    parents[process.th32ProcessID] = process.th32ParentProcessID;
    process.dwSize = sizeof(process);
  } while (next(snapshot.get(), &process) != 0);
  return parents;
}

}  // namespace

std::vector<DWORD> DescendantsOf(DWORD id) {
  const std::map<DWORD, DWORD> parents = Parents();
  std::vector<DWORD> family = {id};
  for (std::size_t i = 0; i < family.size(); ++i) {
    for (const auto& [child, parent] : parents) {
      if (parent == family[i] && std::find(family.begin(), family.end(), child) == family.end())
        family.push_back(child);
    }
  }
  family.erase(family.begin());
  return family;
}

}  // namespace discwright::host
