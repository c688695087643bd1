// The files below a folder: every name once, in the order in which everything else is decided and reported.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/hard_links.h"
#include "tools/dfl/problems.h"

namespace discwright::tools::dfl {

// One name of a file that is not empty.
struct FoundName {
  std::size_t folder = 0;  // index into Tree's folders
  std::string name;
  host::FileFacts facts;  // as the scan saw them
};

// One file: the names below the folder that are hard links of one another, first name first.
struct File {
  host::FileFacts facts;
  std::vector<std::size_t> names;  // places in the tree; see Tree
};

// Files that may have equal content, ordered by their first names.
using Group = std::vector<File>;

// Names stand in the order of a walk that visits each folder's entries by name, byte by byte. A name's index is its
// place. Symbolic links, special files and empty files are left out.
class Tree {
 public:
  // Walks the folder. Folders that cannot be listed become problems.
  Tree(std::string_view folder, Problems& problems);

  const std::vector<FoundName>& names() const { return names_; }
  std::string Path(std::size_t place) const;
  const std::string& FolderOf(std::size_t place) const { return folders_[names_[place].folder]; }

  // The files of each volume that share their size with another one: one group per size, in order of their first
  // names.
  std::vector<Group> GroupsOfEqualSize() const;

 private:
  void Walk(std::string folder, Problems& problems);

  std::vector<std::string> folders_;  // with a separator at the end
  std::vector<FoundName> names_;
};

// The name of a link until it takes its target's place, in `folder` (with a separator at the end). Such names belong to
// this program.
std::string PassingName(std::string_view folder, std::size_t number);
bool IsPassingName(std::string_view name);

}  // namespace discwright::tools::dfl
