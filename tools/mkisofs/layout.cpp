// Places descriptors, boot image, path tables, directories and files one behind the other.
#include "tools/mkisofs/layout.h"

#include <limits>

#include "tools/mkisofs/directory_records.h"
#include "tools/mkisofs/path_tables.h"
#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();

// Hands out sectors in ascending order. Past the end of the largest volume its numbers mean nothing; the end tells.
class Cursor {
 public:
  std::uint32_t Take(std::uint64_t bytes) {
    const std::uint64_t start = next_;
    next_ += SectorsFor(bytes);
    return static_cast<std::uint32_t>(start);
  }
  std::uint64_t next() const { return next_; }

 private:
  std::uint64_t next_ = kSystemAreaSectors;
};

// Old BIOSes fail when catalogue and boot image lie far out, so both come first.
void PlaceDescriptorsAndBoot(Tree& tree, Layout& layout, Cursor& cursor) {
  const std::uint32_t descriptors = layout.boot_image ? 4 : 3;
  cursor.Take(std::uint64_t{descriptors} * kSectorSize);
  if (!layout.boot_image) return;
  layout.boot_catalogue = cursor.Take(kSectorSize);
  Node& image = tree.nodes[*layout.boot_image];
  Node& data = image.data_of_other ? tree.nodes[image.extent] : image;
  layout.boot_image = static_cast<NodeIndex>(&data - tree.nodes.data());
  data.extent = cursor.Take(data.size);
}

bool PlaceDirectories(Tree& tree, Layout& layout, Cursor& cursor) {
  const std::uint64_t path_table_size = PathTableSize(tree);
  if (path_table_size > kMost) return false;
  layout.path_table_size = static_cast<std::uint32_t>(path_table_size);
  layout.path_table_l = cursor.Take(path_table_size);
  layout.path_table_m = cursor.Take(path_table_size);
  layout.directories = static_cast<std::uint32_t>(cursor.next());
  for (const Folder& folder : tree.folders) {
    if (folder.number == 0) continue;
    const std::uint64_t size = DirectorySize(tree, folder);
    if (size > kMost) return false;
    tree.NodeOf(folder).extent = cursor.Take(size);
    tree.NodeOf(folder).size = static_cast<std::uint32_t>(size);
  }
  return true;
}

void PlaceFiles(Tree& tree, const Layout& layout, Cursor& cursor) {
  for (NodeIndex index = 0; index < tree.nodes.size(); ++index) {
    Node& node = tree.nodes[index];
    if (IsStoredFile(node) && index != layout.boot_image) node.extent = cursor.Take(node.size);
    if (node.is_catalogue) node.extent = layout.boot_catalogue;
  }
}

// What has no place of its own. An empty file stands at the padding, where no other file's data are and a reader that
// looks in spite of the size finds zeros within the volume.
void PlaceTheRest(Tree& tree, const Layout& layout) {
  for (Node& node : tree.nodes) {
    if (node.is_folder) continue;
    if (node.size == 0) {
      node.extent = layout.padding;
    } else if (node.data_of_other) {
      node.extent = tree.nodes[node.extent].extent;
    }
  }
}

}  // namespace

bool IsStoredFile(const Node& node) {
  return !node.is_folder && !node.is_catalogue && !node.data_of_other && node.size > 0;
}

std::string PlaceEverything(Tree& tree, Layout& layout) {
  Cursor cursor;
  PlaceDescriptorsAndBoot(tree, layout, cursor);
  if (!PlaceDirectories(tree, layout, cursor)) return "there are more files than an image can hold";
  PlaceFiles(tree, layout, cursor);
  layout.padding = cursor.Take(std::uint64_t{kPaddingSectors} * kSectorSize);
  if (cursor.next() > kMost) return "the files are larger than an image can be";
  layout.sectors = static_cast<std::uint32_t>(cursor.next());
  PlaceTheRest(tree, layout);
  return {};
}

}  // namespace discwright::tools::mkisofs
