// Stores, in the writing pass, the files of a checked plan in the image. Call WriteVolume.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "tools/createdsk/volume_plan.h"

namespace discwright::tools {

// Reads the whole content of a file of the profile.
using ContentReader = std::function<Result(const ProfileFile& file, std::string& content)>;

// Writes files, folders and every copy of the FAT into `image`, from which `volume` was read. Does not write the boot
// sector. CheckSpace must have succeeded. Fails when a content cannot be read or does not have its planned size. After
// a failure the content of `image` is undefined.
Result WriteVolume(Volume& volume, const VolumePlan& plan, const ContentReader& read_content,
                   std::span<std::uint8_t> image);

}  // namespace discwright::tools
