// Describes a FAT12 volume in memory: its layout, its allocation table and its tree of folders. Call ReadVolume to read
// one from an image.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "tools/createdsk/directory_record.h"
#include "tools/createdsk/fat_table.h"
#include "tools/createdsk/volume_layout.h"
#include "tools/result.h"

namespace discwright::tools {

// A folder with all directory entries that its clusters hold, including unused ones. The keys of `files` and `folders`
// are indexes into `records`.
struct Folder {
  std::string path;  // for messages, such as "DOS\TOOLS"; empty for the root
  Chain chain;       // empty for the root, and for a new folder that has no clusters yet
  std::vector<DirectoryRecord> records;
  std::map<std::size_t, Chain> files;  // the clusters of each file
  std::map<std::size_t, std::unique_ptr<Folder>> folders;
};

struct Volume {
  VolumeLayout layout;
  FatTable fat;
  Folder root;
};

// Returns the path of an entry of `folder`. For example, "DOS" and "KEYB.COM" give "DOS\KEYB.COM".
std::string PathOf(const Folder& folder, const ShortName& name);

// Reads and checks a whole volume. Fails when a cluster chain is broken, meets another one or does not have the length
// of its file, when a folder does not name its parent, or when the copies of the FAT differ. The sentence of a failure
// names the file at fault and has no subject: the caller puts the name of the image before it. Entries after the end of
// a folder are read as zeros, as DOS does.
Result ReadVolume(std::span<const std::uint8_t> image, Volume& volume);

}  // namespace discwright::tools
