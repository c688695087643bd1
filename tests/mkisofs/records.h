// Small trees made by hand, and bytes as texts that a failed comparison shows readably.
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

// Builds trees folder by folder, as they are read.
class TreeBuilder {
 public:
  TreeBuilder() {
    tree.nodes.emplace_back();
    tree.nodes.front().is_folder = true;
    tree.folders.push_back({.number = 1});
  }

  // What stands in a folder, in order; each folder must be filled before those that follow it.
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
