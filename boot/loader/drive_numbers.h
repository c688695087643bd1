// Numbers the hard disks as if the disk with the boot menu were not there. A system on another disk expects to be on
// the first one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace discwright::loader {

inline constexpr std::uint8_t kFirstDiskNumber = 0x80;  // for INT 13h
inline constexpr std::size_t kMappedDisks = 16;       // the others keep their numbers

// The disk that is to be called kFirstDiskNumber + i has the number numbers[i] of the BIOS.
using DriveNumbers = std::array<std::uint8_t, kMappedDisks>;

// The numbers as the BIOS has them.
DriveNumbers UnchangedNumbers();

// Puts the disk `own` behind the others. `disks`: how many hard disks the BIOS knows. The numbers stay as they are if
// `own` is none of them.
DriveNumbers NumbersWithout(std::uint8_t own, std::size_t disks);

}  // namespace discwright::loader
