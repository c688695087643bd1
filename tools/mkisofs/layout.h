// Gives every part of the image its sectors in the sizing pass, before the writing pass begins. Master() calls
// ShareData, if hard links are to be stored once, and then PlaceEverything.
#pragma once

#include <cstdint>
#include <optional>

#include "tools/mkisofs/tree.h"
#include "tools/result.h"

namespace discwright::tools::mkisofs {

inline constexpr std::uint32_t kSystemAreaSectors = 16;  // ECMA-119 6.2.1
inline constexpr std::uint32_t kPaddingSectors = 150;  // some drives read ahead past the end of a track and fail there

// The sector at which each part of the image begins. The order is: system area, volume descriptors, boot catalogue,
// boot image, path tables, directories, files, padding.
struct Layout {
  std::optional<NodeIndex> boot_image;  // without one the disc does not boot
  std::uint32_t boot_catalogue = 0;
  std::uint32_t path_table_size = 0;  // bytes
  std::uint32_t path_table_l = 0;     // little-endian
  std::uint32_t path_table_m = 0;     // big-endian
  std::uint32_t directories = 0;
  std::uint32_t padding = 0;
  std::uint32_t sectors = 0;  // size of the whole volume
};

// Finds the hard links in `tree`. The first name of a file keeps the data; the others become data_of_other.
void ShareData(Tree& tree);

// Sets the extent of every node of `tree`, the size of every directory, and `layout`, whose boot image must be chosen.
// Fails when the tree is too large for a volume.
Result PlaceEverything(Tree& tree, Layout& layout);

// Whether the image has a place for the data of this node. Folders, the boot catalogue, further names of a file and
// empty files have none.
bool IsStoredFile(const Node& node);

}  // namespace discwright::tools::mkisofs
