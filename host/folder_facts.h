// Identifies folders, finds mount points, and follows the links in a path. Call FactsOfFolder before deleting a folder.
#pragma once

#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

struct FolderFacts {
  // Differs between this folder and another one that gets the same path later. It stays the same after a restart and
  // after a renaming; a copy of the folder has another one. Windows 95, 98 and Me cannot identify a folder, so there it
  // is made from the path.
  std::string identity;
  // Whether another file system, or a folder from another place, is mounted here. Never true on Windows, where such a
  // mount is a link.
  bool is_mount_point = false;
};

// The facts of a folder. A file, or a link of any kind, is a failure (kWrongKind).
Result<FolderFacts> FactsOfFolder(std::string_view path);

// The path with all its links followed, as far as it exists; the rest does not change. A link whose target is missing
// is followed, too. Windows before Vista cannot tell where links lead; there the path is only made absolute.
std::string FollowedPath(std::string_view path);

}  // namespace discwright::host
