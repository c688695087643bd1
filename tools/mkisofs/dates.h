// Converts dates to the two formats of ISO 9660: RecordingTime for files, VolumeTime for volumes. Both are stored as
// UTC, so that the time zone of the machine does not change the image.
#pragma once

#include <array>
#include <cstdint>

namespace discwright::tools::mkisofs {

using RecordingTime = std::array<std::uint8_t, 7>;  // ECMA-119 9.1.5
using VolumeTime = std::array<std::uint8_t, 17>;    // ECMA-119 8.4.26.1

// `seconds` counts from 1970-01-01 00:00 UTC. A time outside the years 1900 to 2155 becomes the nearest one inside.
RecordingTime MakeRecordingTime(std::int64_t seconds);

// `seconds` counts as above. A time outside the years 1 to 9999 becomes the nearest one inside.
VolumeTime MakeVolumeTime(std::int64_t seconds);

// Returns the value that stands for "no date given".
VolumeTime NoVolumeTime();

}  // namespace discwright::tools::mkisofs
