// Reads the folders and groups the files by size.
#include "tools/dfl/tree.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace discwright::tools::dfl {
namespace {

void MoveGroup(Group& group, std::vector<Group>& groups) {
  if (group.size() > 1) {
    std::sort(group.begin(), group.end(), [](const File& a, const File& b) { return a.names[0] < b.names[0]; });
    groups.push_back(std::move(group));
  }
  group.clear();
}

}  // namespace

Tree::Tree(std::string_view folder, Problems& problems) {
  std::string start(folder);
  if (!start.ends_with('\\')) start += '\\';
  Walk(std::move(start), problems);
}

void Tree::Walk(std::string folder, Problems& problems) {
  host::Result<std::vector<host::NamedFacts>> listing = host::ListFacts(folder);
  if (!listing.status.ok()) {
    problems.Add(names_.size(), folder, "cannot be listed", listing.status);
    return;
  }
  const std::size_t index = folders_.size();
  folders_.push_back(std::move(folder));
  for (host::NamedFacts& entry : listing.value) {
    if (!entry.status.ok()) {
      problems.Add(names_.size(), folders_[index] + entry.name, "cannot be read", entry.status);
    } else if (entry.is_folder) {
      Walk(folders_[index] + entry.name + "\\", problems);
    } else if (entry.facts.size > 0) {
      names_.push_back({index, std::move(entry.name), entry.facts});
    }
  }
}

std::string Tree::Path(std::size_t place) const { return FolderOf(place) + names_[place].name; }

std::vector<Group> Tree::GroupsOfEqualSize() const {
  std::vector<std::size_t> places(names_.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  const auto key = [&](std::size_t place) {
    const host::FileFacts& facts = names_[place].facts;
    return std::tie(facts.volume, facts.size, facts.number);
  };
  std::sort(places.begin(), places.end(),
            [&](std::size_t a, std::size_t b) { return std::tuple(key(a), a) < std::tuple(key(b), b); });
  std::vector<Group> groups;
  Group group;
  for (const std::size_t place : places) {
    const host::FileFacts& facts = names_[place].facts;
    if (!group.empty() && group.back().facts.IsSameFile(facts)) {
      group.back().names.push_back(place);
      continue;
    }
    const bool fits =
        !group.empty() && group.back().facts.volume == facts.volume && group.back().facts.size == facts.size;
    if (!fits) MoveGroup(group, groups);
    group.push_back({facts, {place}});
  }
  MoveGroup(group, groups);
  std::sort(groups.begin(), groups.end(), [](const Group& a, const Group& b) { return a[0].names[0] < b[0].names[0]; });
  return groups;
}

}  // namespace discwright::tools::dfl
