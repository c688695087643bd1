// Walks the source tree level by level, which is the order of the path tables.
#include "tools/mkisofs/tree_reader.h"

#include <algorithm>
#include <limits>

#include "tools/mkisofs/names.h"
#include "tools/mkisofs/sector.h"
#include "tools/temporary_link.h"

namespace discwright::tools::mkisofs {
namespace {

// ECMA-119 9.4.4: the number of a parent folder in the path tables has 16 bits.
constexpr std::uint32_t kLastParentNumber = 0xFFFF;
constexpr std::uint64_t kLargestFile = 0xFFFFFFFF;
// Offsets and indexes of Tree have 32 bits, so they end at this number.
constexpr std::size_t kLargestIndex = std::numeric_limits<std::uint32_t>::max();

// A name by its hash without letter case. Two names with one hash may be the same name for DOS and Windows.
struct FoldedName {
  std::uint64_t hash;
  NodeIndex node;
  bool operator<(const FoldedName& other) const { return hash != other.hash ? hash < other.hash : node < other.node; }
};

std::string_view WhyNotStored(const host::TreeEntry& entry, bool follow_links) {
  if (entry.is_link && !follow_links) return "a symbolic link, and -follow-links is not given";
  if (entry.is_link && entry.status.error == host::ErrorClass::kNotFound) return "a symbolic link that leads nowhere";
  if (!entry.status.ok()) return entry.status.cause;
  if (entry.kind == host::EntryKind::kSpecial) return "a device, pipe or socket";
  if (entry.size > kLargestFile) return "the file has 4 GiB or more";
  return {};
}

class Reader {
 public:
  Reader(host::SourceTree& source, const Options& options, Problems& problems)
      : source_(source), options_(options), problems_(problems) {
    const std::size_t slash = options.boot_catalogue.rfind('/');
    catalogue_folder_ = slash == std::string::npos ? "" : options.boot_catalogue.substr(0, slash);
    catalogue_name_ = options.boot_catalogue.substr(slash + 1);
  }

  Tree Read() {
    AddRoot();
    for (FolderIndex folder = 0; folder < tree_.folders.size() && !full_; ++folder) ReadFolder(folder);
    return std::move(tree_);
  }

 private:
  void AddRoot() {
    const host::TreeEntry root = source_.Look("");
    if (!root.status.ok()) AddProblem("", root.status.cause);
    tree_.nodes.push_back(MakeNode(root, 0));
    tree_.folders.push_back({.number = ++last_number_});
  }

  void ReadFolder(FolderIndex index) {
    const std::string path = tree_.PathOf(tree_.folders[index].node);
    const std::size_t first = tree_.nodes.size();
    const host::Status status = source_.List(path, [&](const host::TreeEntry& entry) { AddEntry(index, path, entry); });
    if (!status.ok()) AddProblem(path, status.cause);
    if (!options_.boot_image.empty() && path == catalogue_folder_) AddCatalogue(index);
    tree_.folders[index].first = static_cast<NodeIndex>(first);
    tree_.folders[index].count = static_cast<std::uint32_t>(tree_.nodes.size() - first);
    std::sort(tree_.nodes.begin() + static_cast<std::ptrdiff_t>(first), tree_.nodes.end(),
              [this](const Node& a, const Node& b) { return ComesBefore(tree_.NameOf(a), tree_.NameOf(b)); });
    RefuseEqualNames(index);
    for (std::size_t node = first; node < first + tree_.folders[index].count && !full_; ++node) {
      if (tree_.nodes[node].is_folder) AddFolder(static_cast<NodeIndex>(node));
    }
  }

  void AddEntry(FolderIndex parent, const std::string& folder_path, const host::TreeEntry& entry) {
    if (entry.kind == host::EntryKind::kFile && IsTemporaryLinkName(entry.name)) {
      tree_.left_out.push_back(PathIn(folder_path, entry.name));
      return;
    }
    const bool hidden = tree_.NodeOf(tree_.folders[parent]).is_hidden || IsHidden(entry.name);
    std::string_view problem = WhyNotStored(entry, options_.follow_links);
    if (problem.empty() && (!hidden || entry.name.size() > std::numeric_limits<std::uint8_t>::max()))
      problem = WhyNotStorable(entry.name);
    if (problem.empty() && !HasRoom(entry.name)) problem = "there are more files than an image can hold";
    if (!problem.empty()) {
      AddProblem(PathIn(folder_path, entry.name), problem);
      return;
    }
    Node node = MakeNode(entry, parent);
    node.is_hidden = hidden;
    tree_.nodes.push_back(node);
  }

  static std::string PathIn(const std::string& folder, std::string_view name) {
    return folder.empty() ? std::string(name) : folder + "/" + std::string(name);
  }

  void AddCatalogue(FolderIndex folder) {
    host::TreeEntry entry;
    entry.name = catalogue_name_;
    entry.modified = tree_.NodeOf(tree_.folders[folder]).modified;
    entry.size = kSectorSize;
    const std::size_t before = tree_.nodes.size();
    AddEntry(folder, catalogue_folder_, entry);
    if (tree_.nodes.size() > before) tree_.nodes.back().is_catalogue = true;
  }

  Node MakeNode(const host::TreeEntry& entry, FolderIndex parent) {
    Node node;
    node.name_offset = static_cast<std::uint32_t>(tree_.names.size());
    node.name_length = static_cast<std::uint8_t>(entry.name.size());
    tree_.names.insert(tree_.names.end(), entry.name.begin(), entry.name.end());
    node.parent = parent;
    node.size = static_cast<std::uint32_t>(entry.size);
    node.volume = VolumeIndex(entry.volume);
    node.id = entry.id;
    node.modified = entry.modified;
    node.is_folder = entry.kind == host::EntryKind::kFolder;
    node.has_other_names = entry.has_other_names;
    tree_.has_links = tree_.has_links || entry.is_link;
    return node;
  }

  void AddFolder(NodeIndex node) {
    const Folder& parent = tree_.folders[tree_.nodes[node].parent];
    if (LeadsBack(node)) {
      AddProblem(tree_.PathOf(node), "a link that leads back to a folder that it stands in");
      return;
    }
    const bool hidden = tree_.nodes[node].is_hidden;
    if (!hidden && parent.number > kLastParentNumber) {
      AddProblem(tree_.PathOf(node), "there are more folders than an image can hold");
      full_ = true;
      return;
    }
    tree_.nodes[node].folder = static_cast<FolderIndex>(tree_.folders.size());
    tree_.folders.push_back({.node = node, .number = hidden ? 0 : ++last_number_});
  }

  // Whether a folder is one of its own parents. Only a link makes this possible.
  bool LeadsBack(NodeIndex index) const {
    const Node& node = tree_.nodes[index];
    for (NodeIndex above = index; above != 0;) {
      above = tree_.folders[tree_.nodes[above].parent].node;
      if (tree_.nodes[above].id == node.id && tree_.nodes[above].volume == node.volume) return true;
    }
    return false;
  }

  void RefuseEqualNames(FolderIndex index) {
    const Folder& folder = tree_.folders[index];
    folded_.clear();
    for (NodeIndex node = folder.first; node < folder.first + folder.count; ++node) {
      if (!tree_.nodes[node].is_hidden) folded_.push_back({FoldedHash(tree_.NameOf(tree_.nodes[node])), node});
    }
    std::sort(folded_.begin(), folded_.end());
    for (std::size_t i = 1; i < folded_.size(); ++i) {
      // Names with equal hashes are neighbours after sorting. Different names share a hash too rarely to cost time.
      for (std::size_t other = i; other > 0 && folded_[other - 1].hash == folded_[i].hash; --other) {
        if (RefuseEqualNames(folded_[other - 1].node, folded_[i].node)) break;
      }
    }
  }

  bool RefuseEqualNames(NodeIndex one, NodeIndex other) {
    const std::string_view first = tree_.NameOf(tree_.nodes[one]), second = tree_.NameOf(tree_.nodes[other]);
    if (!DifferOnlyInCase(first, second)) return false;
    const std::string_view how =
        first == second ? " has the same name" : " has a name that differs only in letter case";
    AddProblem(tree_.PathOf(one), tree_.PathOf(other).append(how));
    return true;
  }

  bool IsHidden(std::string_view name) const {
    return std::any_of(options_.hidden.begin(), options_.hidden.end(),
                       [name](const std::string& pattern) { return MatchesPattern(pattern, name); });
  }

  bool HasRoom(std::string_view name) {
    full_ = full_ || tree_.nodes.size() >= kLargestIndex || tree_.names.size() + name.size() > kLargestIndex;
    return !full_;
  }

  std::uint16_t VolumeIndex(std::uint64_t volume) {
    auto& volumes = tree_.volumes;
    if (!volumes.empty() && volumes[last_volume_] == volume) return last_volume_;
    const auto found = std::find(volumes.begin(), volumes.end(), volume);
    last_volume_ = static_cast<std::uint16_t>(found - volumes.begin());
    if (found == volumes.end()) volumes.push_back(volume);
    return last_volume_;
  }

  void AddProblem(const std::string& path, std::string_view cause) {
    problems_.Add(path.empty() ? options_.tree : options_.tree + "/" + path, cause);
  }

  host::SourceTree& source_;
  const Options& options_;
  Problems& problems_;
  Tree tree_;
  std::string catalogue_folder_;
  std::string catalogue_name_;
  std::vector<FoldedName> folded_;
  std::uint32_t last_number_ = 0;
  std::uint16_t last_volume_ = 0;
  bool full_ = false;
};

}  // namespace

Tree ReadTree(host::SourceTree& source, const Options& options, Problems& problems) {
  return Reader(source, options, problems).Read();
}

}  // namespace discwright::tools::mkisofs
