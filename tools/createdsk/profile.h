// A disk profile: what the file disk.ini of a profile folder says.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/createdsk/result.h"
#include "tools/createdsk/short_name.h"

namespace discwright::tools {

// One line of [Files] or [Selection]: a file on the disk and where its content comes from.
struct ProfileFile {
  std::vector<ShortName> path;  // the folders from the root on, then the file's own name
  std::string source;           // relative to the profile folder

  const ShortName& name() const { return path.back(); }
  std::string DiskPath() const;  // "DOS\KEYB.COM"
};

struct Profile {
  std::string image;               // the image's file name in the program folder
  std::optional<ShortName> label;  // only a profile with a base can be without
  std::string boot_sector;         // relative to the profile folder, as is `base`; empty when the profile has none
  std::string base;
  std::vector<ProfileFile> files;  // in the order of disk.ini, no path twice
};

// Reads the text of a disk.ini; with `selection` the files of [Selection] replace or follow those of [Files]. The
// failure names section and key.
Result ParseProfile(std::string_view text, bool selection, Profile& profile);

// Whether the text is one plain file or folder name, with nothing in it that leads to another folder.
bool IsBareName(std::string_view name);

}  // namespace discwright::tools
