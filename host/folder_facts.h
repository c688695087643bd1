// What the system knows of one folder, and where a path leads when all links are followed. Programs that delete folders
// ask this first.
#pragma once

#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

struct FolderFacts {
  // Differs between a folder and another one that later gets the same path. It survives a restart and a renaming; a
  // copy of the folder has another one. Windows 95, 98 and Me only know the path of a folder, so there it is the
  // path's.
  std::string identity;
  // Whether another file system, or a folder from another place, is mounted here. Never true on Windows, where that is
  // a link.
  bool is_mount_point = false;
};

// The facts of a folder. A file, or a link of any kind, is a failure (kWrongKind).
Result<FolderFacts> FactsOfFolder(std::string_view path);

// The path with all of its links followed, as far as it exists; the rest stays as it is written. A link whose target is
// missing is followed, too. Windows before Vista cannot tell where links lead: the path is only made absolute.
std::string FollowedPath(std::string_view path);

}  // namespace discwright::host
