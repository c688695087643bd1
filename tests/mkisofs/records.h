// For tests of single records: TreeBuilder makes small trees, Hex() turns bytes into text that a failure shows
// readably.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs::testing {

inline std::string Hex(std::span<const std::uint8_t> bytes) {
  std::string text;
  char two[4];
  for (const std::uint8_t byte : bytes) {
    std::snprintf(two, sizeof two, "%02x", byte);
    text += two;
  }
  return text;
}

// Builds a tree folder by folder, in the order in which ReadTree reads them.
class TreeBuilder {
 public:
  TreeBuilder() {
    tree.nodes.emplace_back();
    tree.nodes.front().is_folder = true;
    tree.folders.push_back({.number = 1});
  }

  // Begins the entries of a folder, which are added in the order of their names. Each folder must be filled before the
  // folders that were added after it.
  void Open(FolderIndex folder) {
    folder_ = folder;
    tree.folders[folder].first = static_cast<NodeIndex>(tree.nodes.size());
  }
  Node& AddFile(std::string_view name, std::uint32_t size = 1) {
    Node node;
    node.name_offset = static_cast<std::uint32_t>(tree.names.size());
    node.name_length = static_cast<std::uint8_t>(name.size());
    node.parent = folder_;
    node.size = size;
    tree.names.insert(tree.names.end(), name.begin(), name.end());
    tree.nodes.push_back(node);
    ++tree.folders[folder_].count;
    return tree.nodes.back();
  }
  FolderIndex AddFolder(std::string_view name) {
    Node& node = AddFile(name, 0);
    node.is_folder = true;
    node.folder = static_cast<FolderIndex>(tree.folders.size());
    tree.folders.push_back({.node = static_cast<NodeIndex>(tree.nodes.size() - 1),
                            .number = static_cast<std::uint32_t>(tree.folders.size() + 1)});
    return node.folder;
  }

  Tree tree;

 private:
  FolderIndex folder_ = 0;
};

}  // namespace discwright::tools::mkisofs::testing
