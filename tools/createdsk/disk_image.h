// Makes the image of a floppy from a profile: a fresh or ready-made volume, the profile's files, the boot sector.
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

// An empty FAT12 volume whose boot sector says that the disk holds no system.
Image FormatDisk(const DiskFormat& format);

struct DiskRequest {
  const Profile& profile;
  std::vector<std::int64_t> sizes;        // in bytes, of the profile's files in their order
  std::optional<BootSector> boot_sector;  // of the profile; its bytes 3 to 61 are not looked at
};

// Turns `image`, a fresh disk or the user's base, into the disk of the profile. The failure names the file or folder
// of the disk, or says of the base what it "is"; the image is not to be used then.
Result FillDisk(const DiskRequest& request, const ContentReader& read_content, Image& image);

}  // namespace discwright::tools
