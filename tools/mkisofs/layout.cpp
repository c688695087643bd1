// Places descriptors, boot image, path tables, directories and files one after the other.
#include "tools/mkisofs/layout.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>

#include "tools/mkisofs/directory_records.h"
#include "tools/mkisofs/path_tables.h"
#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr std::uint64_t kLargestField = std::numeric_limits<std::uint32_t>::max();  // sizes and sectors have 32 bits

// Identifies the file of a node. Two nodes with the same id and volume are hard links of one file.
struct FileIdentity {
  std::uint64_t id;
  NodeIndex node;
  std::uint16_t volume;
  bool operator<(const FileIdentity& other) const {
    return std::tie(volume, id, node) < std::tie(other.volume, other.id, other.node);
  }
  bool IsSameFile(const FileIdentity& other) const { return volume == other.volume && id == other.id; }
};

bool IsFileOfHost(const Node& node) { return !node.is_folder && !node.is_catalogue; }

// Hands out sectors in ascending order. The numbers wrap around past the end of the largest volume; PlaceEverything
// looks at next(), which does not, and refuses such a tree.
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

// The boot catalogue and the boot image come first, because old BIOSes cannot read them from high sectors.
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
  if (path_table_size > kLargestField) return false;
  layout.path_table_size = static_cast<std::uint32_t>(path_table_size);
  layout.path_table_l = cursor.Take(path_table_size);
  layout.path_table_m = cursor.Take(path_table_size);
  layout.directories = static_cast<std::uint32_t>(cursor.next());
  for (const Folder& folder : tree.folders) {
    if (folder.number == 0) continue;
    const std::uint64_t size = DirectorySize(tree, folder);
    if (size > kLargestField) return false;
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

// Gives hard links the extent of their data, and empty files the first sector of the padding: some readers take the
// extent for the number of a file, and others read there although the size is 0. They find zeros within the volume.
void PlaceLinksAndEmptyFiles(Tree& tree, const Layout& layout) {
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

void ShareData(Tree& tree) {
  std::vector<FileIdentity> files;
  for (NodeIndex index = 0; index < tree.nodes.size(); ++index) {
    const Node& node = tree.nodes[index];
    // The host counts hard links only. Symbolic links to one file also give it several names in the tree.
    if (IsFileOfHost(node) && (tree.has_links || node.has_other_names)) files.push_back({node.id, index, node.volume});
  }
  std::sort(files.begin(), files.end());
  for (std::size_t i = 1, first = 0; i < files.size(); ++i) {
    if (!files[i].IsSameFile(files[first])) {
      first = i;
      continue;
    }
    Node& node = tree.nodes[files[i].node];
    node.data_of_other = true;
    node.extent = files[first].node;
    // The sizes differ when the file changed while the tree was read. The writing pass then fails with the file's name.
    node.size = tree.nodes[files[first].node].size;
  }
}

Result PlaceEverything(Tree& tree, Layout& layout) {
  Cursor cursor;
  PlaceDescriptorsAndBoot(tree, layout, cursor);
  if (!PlaceDirectories(tree, layout, cursor)) return Result::Failure("there are more files than an image can hold");
  PlaceFiles(tree, layout, cursor);
  layout.padding = cursor.Take(std::uint64_t{kPaddingSectors} * kSectorSize);
  if (cursor.next() > kLargestField) return Result::Failure("the files are larger than an image can be");
  layout.sectors = static_cast<std::uint32_t>(cursor.next());
  PlaceLinksAndEmptyFiles(tree, layout);
  return Result::Success();
}

}  // namespace discwright::tools::mkisofs
