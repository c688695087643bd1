// Dates and times as ISO 9660 records them; always UTC, so that an image does not depend on where it is made.
#pragma once

#include <array>
#include <cstdint>

namespace discwright::tools::mkisofs {

using RecordingTime = std::array<std::uint8_t, 7>;  // ECMA-119 9.1.5
using VolumeTime = std::array<std::uint8_t, 17>;    // ECMA-119 8.4.26.1

// Seconds since 1970-01-01 00:00 UTC. What lies outside the years 1900 to 2155 becomes the nearest that does not.
RecordingTime MakeRecordingTime(std::int64_t seconds);

// The same for the years 1 to 9999.
VolumeTime MakeVolumeTime(std::int64_t seconds);

// The time that means "none".
VolumeTime NoVolumeTime();

}  // namespace discwright::tools::mkisofs
