// Lists folders and looks at single paths.
#include <algorithm>

#include "base/wildcard.h"
#include "host/files.h"
#include "host/native_text.h"
#include "host/system.h"
#include "host/win32/find_entries.h"
#include "host/win32/native_path.h"

namespace discwright::host {
namespace {

// A pattern as it is matched: nothing to match against when it takes every name. The system's own matching would also
// look at short names, where "*.HTM" takes every ".html".
std::string FoldedPattern(std::string_view pattern) {
  return pattern == "*.*" || pattern == "*" ? std::string() : FoldCase(pattern);
}

// Describes the entries of one folder. The folder's own parents are only looked at when a link turns up.
class EntryReader {
 public:
  explicit EntryReader(std::string_view folder) : folder_(folder) {}

  Entry Read(const std::string& name, const NativeFacts& facts, bool is_link) {
    Entry entry;
    entry.name = name;
    entry.is_link = is_link;
    if (is_link) {
      FollowLink(entry);
    } else {
      SetKind(entry, facts);
    }
    return entry;
  }

 private:
  static void SetKind(Entry& entry, const NativeFacts& facts) {
    entry.kind = IsDevicePath(entry.name) ? EntryKind::kSpecial
                 : facts.IsFolder()       ? EntryKind::kFolder
                                          : EntryKind::kFile;
    if (entry.kind == EntryKind::kFile) entry.size = static_cast<std::int64_t>(facts.size);
  }

  void FollowLink(Entry& entry) {
    NativeFacts facts;
    entry.broken = !FactsOfPath(DoorPath(InFolder(folder_, entry.name)), Links::kFollow, facts).ok();
    if (entry.broken) return;
    SetKind(entry, facts);
    entry.loops = entry.kind == EntryKind::kFolder && IsOwnParent(facts);
  }

  bool IsOwnParent(const NativeFacts& target) {
    if (parents_.empty()) FindParents();
    return std::any_of(parents_.begin(), parents_.end(),
                       [&](const NativeFacts& parent) { return parent.IsSameFile(target); });
  }

  // The folder and every folder on the way to it, by the way it is written: a link that was descended is one of them.
  void FindParents() {
    std::string folder = AbsolutePath(folder_);
    for (std::string child; child != folder; folder = ParentFolder(child)) {
      NativeFacts facts;
      if (FactsOfPath(DoorPath(folder), Links::kFollow, facts).ok()) parents_.push_back(facts);
      child = folder;
    }
  }

  std::string folder_;
  std::vector<NativeFacts> parents_;
};

NativeFacts FactsOf(const WIN32_FIND_DATAA& data) {
  NativeFacts facts;
  facts.attributes = data.dwFileAttributes;
  facts.size = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
  return facts;
}

}  // namespace

Listing ListFolder(std::string_view folder, std::string_view pattern) {
  Listing listing;
  std::vector<FoundEntry> found;
  listing.status = FindEntries(folder, found);
  const std::string folded_pattern = FoldedPattern(pattern);
  EntryReader reader(folder);
  for (const FoundEntry& entry : found) {
    if (!folded_pattern.empty() && !base::MatchesWildcard(FoldCase(entry.name), folded_pattern)) continue;
    listing.entries.push_back(reader.Read(entry.name, FactsOf(entry.data), IsLink(entry.data)));
  }
  return listing;
}

std::optional<Entry> Look(std::string_view path) {
  const DoorPath door(path);
  if (!door.status.ok()) return std::nullopt;
  if (IsDevicePath(door.core)) return Entry{std::string(NameOf(door.core)), EntryKind::kSpecial};
  const std::string folder = ParentFolder(AbsolutePath(door.core));
  WIN32_FIND_DATAA data{};
  if (FindOne(door.native, data)) {
    Entry entry = EntryReader(folder).Read(TextOfCodePage(data.cFileName), FactsOf(data), IsLink(data));
    return entry.broken ? std::nullopt : std::optional(entry);
  }
  // A root is in no listing.
  NativeFacts facts;
  if (!FactsOfPath(door, Links::kFollow, facts).ok()) return std::nullopt;
  return EntryReader(folder).Read(std::string(NameOf(door.core)), facts, false);
}

}  // namespace discwright::host
