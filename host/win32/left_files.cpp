// Deletes temporary files that no program writes any more. A file that is being written is open, and no other program
// can open it for exclusive use.
#include "host/left_files.h"

#include <windows.h>

#include "base/paths.h"
#include "base/temporary_names.h"
#include "host/win32/find_entries.h"
#include "host/win32/new_file.h"
#include "host/win32/owned_handle.h"

namespace discwright::host {
namespace {

bool IsOpenSomewhere(const AnsiPath& path) {
  const OwnedHandle alone(
      CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  return !alone.valid();
}

}  // namespace

void RemoveLeftFiles(std::string_view folder) {
  for (const FoundEntry& entry : FindEntries(folder).value) {
    if (!base::IsTemporaryName(entry.name) || !entry.IsReachable() || entry.IsFolder() || IsLink(entry.data)) continue;
    const AnsiPath path(base::InFolder(folder, entry.name));
    if (path.status.ok() && !IsOpenSomewhere(path)) static_cast<void>(DeleteForSure(path));
  }
}

}  // namespace discwright::host
