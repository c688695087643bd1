// Holds the tree to be mastered in memory. Its arrays are compact, because a tree may have millions of files.
// ReadTree fills a Tree; ShareData and PlaceEverything complete it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::tools::mkisofs {

using NodeIndex = std::uint32_t;
using FolderIndex = std::uint32_t;

// A name in the tree: a folder, or one name of a file.
struct Node {
  std::uint32_t name_offset = 0;  // where the name begins in Tree::names
  FolderIndex parent = 0;         // the folder that contains it; the root's parent is the root, 0
  FolderIndex folder = 0;         // the index of a folder in Tree::folders
  std::uint32_t size = 0;         // in bytes; for a folder, the size of its directory on the disc
  std::uint32_t extent = 0;       // the first sector on the disc; before PlaceEverything has run, see data_of_other
  std::uint16_t volume = 0;       // index in Tree::volumes; together with `id` the identity of the file on the host
  std::uint8_t name_length = 0;
  bool is_folder : 1 = false;
  bool is_hidden : 1 = false;      // no directory of the disc has the name, but the data are stored
  bool is_catalogue : 1 = false;   // the boot catalogue, which does not exist on the host
  bool data_of_other : 1 = false;  // a further name of a file; until PlaceEverything `extent` is the node with the data
  bool has_other_names : 1 = false;  // the file has several hard links
  std::uint64_t id = 0;
  std::int64_t modified = 0;  // seconds since 1970-01-01 00:00 UTC
};
static_assert(sizeof(Node) == 40);

// A folder. Its entries are consecutive nodes in the order of their names on the disc.
struct Folder {
  NodeIndex node = 0;
  NodeIndex first = 0;
  std::uint32_t count = 0;
  std::uint32_t number = 0;  // counts from 1 in the path tables; 0 for a hidden folder, which they leave out
};

// Node 0 and folder 0 are the root, whose name is empty. `folders` has the order of the path tables: by depth, then by
// parent, then by name.
struct Tree {
  std::vector<Node> nodes;
  std::vector<Folder> folders;
  std::vector<char> names;
  std::vector<std::uint64_t> volumes;
  bool has_links = false;             // symbolic links were followed
  std::vector<std::string> left_out;  // paths of temporary links of dfl, which are not mastered

  std::string_view NameOf(const Node& node) const { return {names.data() + node.name_offset, node.name_length}; }
  Node& NodeOf(const Folder& folder) { return nodes[folder.node]; }
  const Node& NodeOf(const Folder& folder) const { return nodes[folder.node]; }
  const Folder& ParentOf(const Folder& folder) const { return folders[NodeOf(folder).parent]; }

  // The path below the root, "/" between names; the path of the root is "".
  std::string PathOf(NodeIndex node) const;
  std::optional<NodeIndex> Find(std::string_view path) const;
};

}  // namespace discwright::tools::mkisofs
