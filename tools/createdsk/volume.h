// A FAT12 volume in memory: its layout, its allocation table and its tree of folders, read from an image.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "tools/createdsk/directory_record.h"
#include "tools/createdsk/fat_table.h"
#include "tools/createdsk/result.h"
#include "tools/createdsk/volume_layout.h"

namespace discwright::tools {

// A folder with all its directory entries, used or not, as many as its clusters hold. Files and folders are known by
// the index of their record.
struct Folder {
  std::string path;  // "DOS\TOOLS" for messages; empty for the root
  Chain chain;       // empty for the root, and for a new folder that has no clusters yet
  std::vector<DirectoryRecord> records;
  std::map<std::size_t, Chain> files;
  std::map<std::size_t, std::unique_ptr<Folder>> folders;
};

struct Volume {
  VolumeLayout layout;
  FatTable fat;
  Folder root;
};

// "DOS" and "KEYB.COM" give "DOS\KEYB.COM".
std::string PathOf(const Folder& folder, const ShortName& name);

// Reads and checks a whole volume. Fails, naming the file at fault, when a chain is broken, crossed or of another
// length than the file, when a folder does not lead back to its parent, or when the copies of the FAT differ. What
// stands behind the end of a folder counts as zero.
Result ReadVolume(std::span<const std::uint8_t> image, Volume& volume);

}  // namespace discwright::tools
