// The writing pass: puts planned files into the image of a volume.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "tools/createdsk/volume_plan.h"

namespace discwright::tools {

// Reads the whole content of a profile's file.
using ContentReader = std::function<Result(const ProfileFile& file, std::string& content)>;

// Writes files, folders and every copy of the FAT into `image`, from which `volume` was read; the boot sector stays.
// The plan's space must have been checked. Fails when a content cannot be read or does not have its planned size; the
// image is not to be used then.
Result WriteVolume(Volume& volume, const VolumePlan& plan, const ContentReader& read_content,
                   std::span<std::uint8_t> image);

}  // namespace discwright::tools
