// Makes the image of a floppy in memory: take FormatDisk or a base image of the user, then call FillDisk.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/createdsk/boot_sector.h"
#include "tools/createdsk/disk_format.h"
#include "tools/createdsk/volume_plan.h"
#include "tools/createdsk/volume_writer.h"

namespace discwright::tools {

using Image = std::vector<std::uint8_t>;

// Returns an empty FAT12 volume. Its boot sector shows the message that the disk holds no system.
Image FormatDisk(const DiskFormat& format);

// Says what FillDisk puts on a disk.
struct DiskRequest {
  const Profile& profile;
  std::vector<std::int64_t> sizes;        // the sizes of the profile's files in bytes, in the order of the profile
  std::optional<BootSector> boot_sector;  // the profile's own; its parameter block (bytes 3 to 61) is ignored
};

// Turns `image`, an empty disk or the user's base image, into the disk of the profile. Fails with a sentence that names
// the file, the folder or the base at fault. After a failure the content of `image` is undefined.
Result FillDisk(const DiskRequest& request, const ContentReader& read_content, Image& image);

}  // namespace discwright::tools
