// The tree that is mastered, in memory: compact, because it may have millions of files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::tools::mkisofs {

using NodeIndex = std::uint32_t;
using FolderIndex = std::uint32_t;

// A name in the tree.
struct Node {
  std::uint32_t name_offset = 0;  // in Tree::names
  FolderIndex parent = 0;         // the folder that it stands in; 0 for the root, too
  FolderIndex folder = 0;         // of a folder: which one it is
  std::uint32_t size = 0;         // bytes; of a folder: of its records on the disc
  std::uint32_t extent = 0;       // sector of its first byte on the disc; before the layout see data_of_other
  std::uint16_t volume = 0;       // in Tree::volumes; with `id` the file's identity on the host
  std::uint8_t name_length = 0;
  bool is_folder : 1 = false;
  bool is_hidden : 1 = false;      // not in the tree of the disc, but its data are stored
  bool is_catalogue : 1 = false;   // the boot catalogue, which is no file of the host
  bool data_of_other : 1 = false;  // a further name of a file; `extent` is the node that has the data until the layout
  bool has_other_names : 1 = false;  // a file with several hard links
  std::uint64_t id = 0;
  std::int64_t modified = 0;  // seconds since 1970-01-01 00:00 UTC
};
static_assert(sizeof(Node) == 40);

// A folder; its entries are consecutive nodes, in their order on the disc.
struct Folder {
  NodeIndex node = 0;
  NodeIndex first = 0;
  std::uint32_t count = 0;
  std::uint32_t number = 0;  // in the path tables, from 1; 0 for a hidden folder, which is not in them
};

// Node 0 and folder 0 are the root, whose name is empty. Folders stand in the order of the path tables: by depth, then
// by parent, then by name.
struct Tree {
  std::vector<Node> nodes;
  std::vector<Folder> folders;
  std::vector<char> names;
  std::vector<std::uint64_t> volumes;
  bool has_links = false;  // symbolic ones were followed

  std::string_view NameOf(const Node& node) const { return {names.data() + node.name_offset, node.name_length}; }
  Node& NodeOf(const Folder& folder) { return nodes[folder.node]; }
  const Node& NodeOf(const Folder& folder) const { return nodes[folder.node]; }
  const Folder& ParentOf(const Folder& folder) const { return folders[NodeOf(folder).parent]; }

  // The path below the tree's root, "/" between names; "" for the root.
  std::string PathOf(NodeIndex node) const;
  std::optional<NodeIndex> Find(std::string_view path) const;
};

}  // namespace discwright::tools::mkisofs
