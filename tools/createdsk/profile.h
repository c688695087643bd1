// Describes a disk profile, which is the content of the file disk.ini in a profile folder. Call ParseProfile to read
// one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/createdsk/short_name.h"
#include "tools/result.h"

namespace discwright::tools {

// A file on the disk, and the file that holds its content: a line of disk.ini, or a file of the user's own system.
struct ProfileFile {
  std::vector<ShortName> path;  // the folders from the root down, then the file's own name
  std::string source;           // path below the profile folder
  bool is_system = false;       // it is read-only, hidden and system on the disk

  const ShortName& name() const { return path.back(); }
  std::string DiskPath() const;  // "DOS\KEYB.COM"
};

struct Profile {
  std::string image;               // the image's file name in the program folder; it ends in ".img"
  std::optional<ShortName> label;  // may be missing only in a profile with a base
  std::string boot_sector;         // path below the profile folder; empty when the profile has none
  std::string base;                // path of a base image below the profile folder; empty when the profile has none
  std::string own;                 // path of the folder for the user's own system below the profile folder; empty when
                                   // the profile takes no such system
  std::vector<ProfileFile> files;  // in the order of disk.ini, no path twice; system files stand first
  std::vector<ProfileFile> files_without_own;  // are added to `files` while the folder `own` is empty
};

// Reads the text of a disk.ini. With `selection` it also reads [Selection]: a file there replaces the file of [Files]
// with the same path, or is added. Fails with a sentence that names the section and the key.
Result ParseProfile(std::string_view text, bool selection, Profile& profile);

// Adds files to `files`. A file with the path of one that is already there replaces its source.
void AddFiles(std::vector<ProfileFile> more, std::vector<ProfileFile>& files);

// Whether the text is the name of one file or folder: it has no separator, "..", wildcard or drive letter, and it is
// not the name of a Windows device.
bool IsBareName(std::string_view name);

}  // namespace discwright::tools
