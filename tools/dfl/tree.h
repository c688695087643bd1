// Finds all files below a folder: construct a Tree to read them. The order of its names decides which of several equal
// files is kept, and in which order messages appear.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/hard_links.h"
#include "tools/dfl/problems.h"

namespace discwright::tools::dfl {

// A name of a file.
struct FoundName {
  std::size_t folder = 0;  // index into Tree's folders
  std::string name;
  host::FileFacts facts;  // what the file was at the time of the scan
};

// A file with all its names in the tree: its hard links, in the order of the tree.
struct File {
  host::FileFacts facts;
  std::vector<std::size_t> names;  // indexes into Tree::names()
};

// Files that may have equal content, in the order of their first names.
using Group = std::vector<File>;

// All names below a folder, in the order of a walk that visits the entries of each folder sorted byte by byte. The
// index of a name is called its place. Symbolic links, devices, pipes, sockets and empty files are left out.
class Tree {
 public:
  // Reads the folder and all folders below it. A folder that cannot be listed becomes a problem.
  Tree(std::string_view folder, Problems& problems);

  const std::vector<FoundName>& names() const { return names_; }
  std::string Path(std::size_t place) const;
  const std::string& FolderOf(std::size_t place) const { return folders_[names_[place].folder]; }

  // The files that share their volume and their size with another file: one group per size, in the order of their first
  // names.
  std::vector<Group> GroupsOfEqualSize() const;

 private:
  void Walk(std::string folder, Problems& problems);

  std::vector<std::string> folders_;  // with a separator at the end
  std::vector<FoundName> names_;
};

}  // namespace discwright::tools::dfl
