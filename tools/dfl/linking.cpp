// Compares files and replaces names by links, unless a file has changed since the scan.
#include "tools/dfl/linking.h"

#include <algorithm>
#include <mutex>
#include <numeric>

#include "tools/dfl/compare.h"
#include "tools/dfl/parallel.h"
#include "tools/temporary_link.h"

namespace discwright::tools::dfl {
namespace {

std::int64_t BytesOf(const Group& group) { return group[0].facts.size * static_cast<std::int64_t>(group.size()); }

// Returns the indexes of the groups. Those of the groups with the most bytes come first.
std::vector<std::size_t> LargestFirst(const std::vector<Group>& groups) {
  std::vector<std::size_t> order(groups.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return BytesOf(groups[a]) > BytesOf(groups[b]); });
  return order;
}

}  // namespace

Saving Linking::Run(const std::vector<Group>& groups, unsigned threads) {
  const std::vector<std::size_t> order = LargestFirst(groups);
  std::vector<Saving> savings(groups.size());
  ForEach(groups.size(), threads, [&](std::size_t index) { savings[index] = LinkGroup(groups[order[index]]); });
  Saving total;
  for (const Saving& saving : savings) {
    total.linked += saving.linked;
    total.bytes += saving.bytes;
  }
  return total;
}

std::vector<std::string> Linking::FoldersWithoutLinks() const {
  const std::lock_guard lock(mutex_);
  std::set<std::uint64_t> missing = volumes_without_links_;
  std::vector<std::string> folders;
  for (std::size_t place = 0; place < tree_.names().size() && !missing.empty(); ++place) {
    if (missing.erase(tree_.names()[place].facts.volume) > 0) folders.push_back(tree_.FolderOf(place));
  }
  return folders;
}

Saving Linking::LinkGroup(Group group) {
  Saving saving;
  std::vector<Group> waiting = {std::move(group)};
  while (!waiting.empty() && HasLinks(waiting.back()[0].facts.volume)) {
    Group next = std::move(waiting.back());
    waiting.pop_back();
    for (Group& equal : EqualFiles(std::move(next), tree_, problems_)) {
      Group again = LinkEqual(std::move(equal), saving);
      if (again.size() > 1) waiting.push_back(std::move(again));
    }
  }
  return saving;
}

// Links the equal files to the first one. Returns the files that must be compared again because a keeper has changed.
Group Linking::LinkEqual(Group equal, Saving& saving) {
  std::vector<File> keepers = {std::move(equal[0])};
  for (std::size_t index = 1; index < equal.size(); ++index) {
    switch (LinkToOneOf(keepers, equal[index], saving)) {
      case Outcome::kKeeperFull:
        keepers.push_back(std::move(equal[index]));
        break;
      case Outcome::kKeeperChanged:
        equal.erase(equal.begin(), equal.begin() + static_cast<std::ptrdiff_t>(index));
        return equal;
      case Outcome::kUnsupported:
        return {};
      case Outcome::kLinked:
      case Outcome::kFailed:
        break;
    }
  }
  return {};
}

// Links the names of a file one after the other. Removes from `file` the names that were linked or have failed.
Linking::Outcome Linking::LinkToOneOf(const std::vector<File>& keepers, File& file, Saving& saving) {
  std::size_t done = 0;
  std::size_t linked = 0;
  Outcome outcome = Outcome::kLinked;
  while (done < file.names.size()) {
    outcome = LinkName(keepers, file.names[done]);
    if (outcome != Outcome::kLinked && outcome != Outcome::kFailed) break;
    linked += outcome == Outcome::kLinked ? 1 : 0;
    ++done;
  }
  saving.linked += linked;
  if (linked == file.names.size()) saving.bytes += file.facts.size;
  file.names.erase(file.names.begin(), file.names.begin() + static_cast<std::ptrdiff_t>(done));
  return outcome;
}

// Each keeper was compared with the first one only. So they are equal as long as the first one is unchanged.
Linking::Outcome Linking::LinkName(const std::vector<File>& keepers, std::size_t place) {
  if (!IsUnchanged(keepers[0].names[0])) return Outcome::kKeeperChanged;
  if (!IsUnchanged(place)) return Outcome::kFailed;
  Outcome outcome = Outcome::kKeeperFull;
  for (const File& keeper : keepers) {
    const bool is_first = &keeper == &keepers[0];
    if (!is_first && !IsUnchanged(keeper.names[0])) return Outcome::kKeeperChanged;
    outcome = LinkOver(keeper, place);
    if (outcome != Outcome::kKeeperFull) break;
  }
  return outcome;
}

Linking::Outcome Linking::LinkOver(const File& keeper, std::size_t place) {
  std::string temporary;
  const host::LinkAnswer answer = MakeTemporaryLink(keeper, place, temporary);
  switch (answer.end) {
    case host::LinkEnd::kMade:
      break;
    case host::LinkEnd::kTooManyLinks:
    case host::LinkEnd::kOtherVolume:  // one volume mounted twice: links between the two mounts fail
      return Outcome::kKeeperFull;
    case host::LinkEnd::kUnsupported:
      NoteWithoutLinks(keeper.facts.volume);
      return Outcome::kUnsupported;
    case host::LinkEnd::kNameTaken:
    case host::LinkEnd::kFailed:
      problems_.Add(place, tree_.Path(place), "cannot be linked", answer.status);
      return Outcome::kFailed;
  }
  const host::Status replaced = calls_.replace(temporary, tree_.Path(place));
  if (replaced.ok()) return Outcome::kLinked;
  host::RemoveSpareName(temporary);
  problems_.Add(place, tree_.Path(place), "cannot be linked", replaced);
  return Outcome::kFailed;
}

// Makes a link to the keeper under a temporary name. Tries further names when another run or program has taken one.
host::LinkAnswer Linking::MakeTemporaryLink(const File& keeper, std::size_t place, std::string& temporary) {
  const std::string existing = tree_.Path(keeper.names[0]);
  for (;;) {
    temporary = tree_.FolderOf(place) + TemporaryLinkName(temporary_number_++);
    host::LinkAnswer answer = calls_.make_link(existing, temporary);
    if (answer.end != host::LinkEnd::kNameTaken) return answer;
  }
}

// Whether the file is still the one that the scan found and that was compared. If it is not, this function adds a
// problem.
bool Linking::IsUnchanged(std::size_t place) {
  const std::string path = tree_.Path(place);
  const std::optional<host::FileFacts> facts = host::FactsOf(path);
  if (facts && facts->IsUnchanged(tree_.names()[place].facts)) return true;
  problems_.Add(place, path, "has changed meanwhile and is left as it is");
  return false;
}

bool Linking::HasLinks(std::uint64_t volume) const {
  const std::lock_guard lock(mutex_);
  return !volumes_without_links_.contains(volume);
}

void Linking::NoteWithoutLinks(std::uint64_t volume) {
  const std::lock_guard lock(mutex_);
  volumes_without_links_.insert(volume);
}

}  // namespace discwright::tools::dfl
