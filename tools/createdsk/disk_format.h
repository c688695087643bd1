// Describes the two floppy formats that CreateDsk makes. FindDiskFormat finds one by its name on the command line.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace discwright::tools {

inline constexpr std::size_t kSectorBytes = 512;

struct DiskFormat {
  std::string_view type;  // its name after "-t"
  std::uint16_t total_sectors;
  std::uint8_t sectors_per_cluster;
  std::uint16_t root_entries;
  std::uint16_t sectors_per_track;

  constexpr std::size_t ImageBytes() const { return total_sectors * kSectorBytes; }
};

inline constexpr std::array<DiskFormat, 2> kDiskFormats = {{
    {"144", 2880, 1, 224, 18},
    {"288", 5760, 2, 240, 36},
}};
static_assert(kDiskFormats[0].ImageBytes() == 1'474'560);
static_assert(kDiskFormats[1].ImageBytes() == 2'949'120);

// Fields of the parameter block that are the same in both formats.
inline constexpr std::uint8_t kFatCount = 2;
inline constexpr std::uint16_t kFatSectors = 9;
inline constexpr std::uint16_t kReservedSectors = 1;
inline constexpr std::uint16_t kHeads = 2;
inline constexpr std::uint8_t kMedia = 0xF0;

// Returns the format that has this name after "-t"; null if no format has it.
constexpr const DiskFormat* FindDiskFormat(std::string_view type) {
  for (const DiskFormat& format : kDiskFormats) {
    if (format.type == type) return &format;
  }
  return nullptr;
}

}  // namespace discwright::tools
