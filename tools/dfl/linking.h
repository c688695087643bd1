// Replaces files of equal content by hard links to one of them. Call Linking::Run once.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/hard_links.h"
#include "host/threads.h"
#include "tools/dfl/problems.h"
#include "tools/dfl/tree.h"

namespace discwright::tools::dfl {

// The two calls that change the disk. Tests replace them to make them fail.
struct LinkCalls {
  std::function<host::LinkAnswer(std::string_view existing, std::string_view fresh)> make_link = host::MakeHardLink;
  std::function<host::Status(std::string_view from, std::string_view to)> replace = host::MoveOver;
};

struct Saving {
  std::size_t linked = 0;  // names that were replaced by links
  std::int64_t bytes = 0;  // sizes of the files that have no names left
};

class Linking {
 public:
  Linking(const Tree& tree, const LinkCalls& calls, Problems& problems)
      : tree_(tree), calls_(calls), problems_(problems) {}

  // Compares the files of each group and links the equal ones to the first of them in the tree, whose time and
  // attributes they get. A file that has changed since the scan becomes a problem and is not linked.
  Saving Run(const std::vector<Group>& groups, unsigned threads);

  // Returns one folder for each volume whose file system has no hard links, in the order of the tree.
  std::vector<std::string> FoldersWithoutLinks() const;

 private:
  // A keeper is a file that stays. A name is replaced by a link to a keeper.
  enum class Outcome { kLinked, kFailed, kKeeperFull, kKeeperChanged, kUnsupported };

  Saving LinkGroup(Group group);
  Group LinkEqual(Group equal, Saving& saving);
  Outcome LinkToOneOf(const std::vector<File>& keepers, File& file, Saving& saving);
  Outcome LinkName(const std::vector<File>& keepers, std::size_t place);
  Outcome LinkOver(const File& keeper, std::size_t place);
  host::LinkAnswer MakeTemporaryLink(const File& keeper, std::size_t place, std::string& temporary);
  bool IsUnchanged(std::size_t place);
  bool HasLinks(std::uint64_t volume) const;
  void NoteWithoutLinks(std::uint64_t volume);

  const Tree& tree_;
  const LinkCalls& calls_;
  Problems& problems_;
  std::atomic<std::size_t> temporary_number_ = 0;
  mutable host::Mutex mutex_;
  std::set<std::uint64_t> volumes_without_links_;
};

}  // namespace discwright::tools::dfl
