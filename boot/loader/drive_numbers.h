// Numbers the hard disks as if the disk with the boot menu were not there. A system on another disk expects to be on
// the first one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace discwright::loader {

inline constexpr std::uint8_t kFirstDiskNumber = 0x80;  // for INT 13h
inline constexpr std::size_t kMappedDisks = 16;         // further disks keep their numbers

// `numbers[i]` is the number by which the BIOS knows the disk that gets the number kFirstDiskNumber + i.
using DriveNumbers = std::array<std::uint8_t, kMappedDisks>;

// The numbers as the BIOS has them.
DriveNumbers UnchangedNumbers();

// Puts the disk `own` behind the others. `disks` is the number of hard disks that the BIOS knows. If `own` is none of
// them, the numbers stay unchanged.
DriveNumbers NumbersWithout(std::uint8_t own, std::size_t disks);

}  // namespace discwright::loader
