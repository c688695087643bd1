// Groups names by the identity of their files.
#include "tools/mkisofs/shared_data.h"

#include <algorithm>
#include <tuple>

namespace discwright::tools::mkisofs {
namespace {

struct Identity {
  std::uint64_t id;
  NodeIndex node;
  std::uint16_t volume;
  bool operator<(const Identity& other) const {
    return std::tie(volume, id, node) < std::tie(other.volume, other.id, other.node);
  }
  bool IsSameFile(const Identity& other) const { return volume == other.volume && id == other.id; }
};

bool IsFileOfHost(const Node& node) { return !node.is_folder && !node.is_catalogue; }

}  // namespace

void ShareData(Tree& tree) {
  std::vector<Identity> files;
  for (NodeIndex index = 0; index < tree.nodes.size(); ++index) {
    const Node& node = tree.nodes[index];
    // Behind a link there may be files that have further names in the tree which their hard links do not count.
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
    // The file may have changed between two looks at it; writing it finds out.
    node.size = tree.nodes[files[first].node].size;
  }
}

}  // namespace discwright::tools::mkisofs
