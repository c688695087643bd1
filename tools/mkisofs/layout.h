// Where everything stands in the image: the pass that sizes and places, before the one that writes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

inline constexpr std::uint32_t kSystemAreaSectors = 16;  // ECMA-119 6.2.1
inline constexpr std::uint32_t kPaddingSectors = 150;    // for drives that read ahead past the end of a track

// Sector numbers. The volume descriptors begin behind the system area; files fill what is between and the padding.
struct Layout {
  std::optional<NodeIndex> boot_image;  // nothing: the disc does not boot
  std::uint32_t boot_catalogue = 0;
  std::uint32_t path_table_size = 0;  // bytes
  std::uint32_t path_table_l = 0;     // little-endian
  std::uint32_t path_table_m = 0;     // big-endian
  std::uint32_t directories = 0;
  std::uint32_t padding = 0;
  std::uint32_t sectors = 0;  // of the whole volume
};

// Gives every node of `tree` its extent (and folders their sizes). A sentence when there is too much for an image;
// empty on success.
std::string PlaceEverything(Tree& tree, Layout& layout);

// Whether a node has data of its own among the files of the image.
bool IsStoredFile(const Node& node);

}  // namespace discwright::tools::mkisofs
