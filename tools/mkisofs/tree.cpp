// Converts between nodes and paths.
#include "tools/mkisofs/tree.h"

#include <algorithm>

namespace discwright::tools::mkisofs {

std::string Tree::PathOf(NodeIndex node) const {
  std::vector<NodeIndex> way;
  for (; node != 0; node = folders[nodes[node].parent].node) way.push_back(node);
  std::string path;
  for (auto step = way.rbegin(); step != way.rend(); ++step) {
    if (!path.empty()) path += '/';
    path += NameOf(nodes[*step]);
  }
  return path;
}

std::optional<NodeIndex> Tree::Find(std::string_view path) const {
  NodeIndex found = 0;
  while (!path.empty()) {
    if (!nodes[found].is_folder) return std::nullopt;
    const Folder& folder = folders[nodes[found].folder];
    const std::string_view name = path.substr(0, path.find('/'));
    const auto first = nodes.begin() + folder.first;
    const auto last = first + folder.count;
    const auto match = std::find_if(first, last, [&](const Node& node) { return NameOf(node) == name; });
    if (match == last) return std::nullopt;
    found = static_cast<NodeIndex>(match - nodes.begin());
    path.remove_prefix(std::min(name.size() + 1, path.size()));
  }
  return found;
}

}  // namespace discwright::tools::mkisofs
