// Computes the sizes of directories and makes their records.
#include "tools/mkisofs/directory_records.h"

#include <algorithm>

#include "base/byte_order.h"
#include "tools/mkisofs/dates.h"
#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr std::uint8_t kDirectoryFlag = 0x02;  // ECMA-119 9.1.6
constexpr std::uint16_t kOnlyVolume = 1;

// Returns the offset in a directory at which a record of `length` bytes begins when other records take the first
// `position` bytes. A record that would cross into the next sector begins in that sector (ECMA-119 6.8.1.1).
std::uint64_t RecordStart(std::uint64_t position, std::size_t length) {
  const std::uint64_t used = position % kSectorSize;
  return used + length > kSectorSize ? position - used + kSectorSize : position;
}

void AppendRecord(const Node& node, std::string_view name, TimeLimit limit, std::size_t start,
                  std::vector<std::uint8_t>& bytes) {
  const std::size_t length = DirectoryRecordLength(name.size());
  bytes.resize(start + static_cast<std::size_t>(RecordStart(bytes.size() - start, length)), 0);
  const auto head = BytesOf(MakeDirectoryRecordHead(node, name.size(), limit));
  bytes.insert(bytes.end(), head.begin(), head.end());
  bytes.insert(bytes.end(), name.begin(), name.end());
  if (name.size() % 2 == 0) bytes.push_back(0);
}

}  // namespace

// Fills in the record as ECMA-119 9.1 describes it.
DirectoryRecordHead MakeDirectoryRecordHead(const Node& node, std::size_t name_length, TimeLimit limit) {
  DirectoryRecordHead head{};
  head.length[0] = static_cast<std::uint8_t>(DirectoryRecordLength(name_length));
  base::StoreBoth32(head.extent, node.extent);
  base::StoreBoth32(head.data_length, node.size);
  head.recorded = MakeRecordingTime(std::min(node.modified, limit));
  head.flags[0] = node.is_folder ? kDirectoryFlag : 0;
  base::StoreBoth16(head.volume_number, kOnlyVolume);
  head.name_length[0] = static_cast<std::uint8_t>(name_length);
  return head;
}

std::uint64_t DirectorySize(const Tree& tree, const Folder& folder) {
  std::uint64_t position = DirectoryRecordLength(kSelf.size()) + DirectoryRecordLength(kParent.size());
  for (NodeIndex index = folder.first; index < folder.first + folder.count; ++index) {
    const Node& node = tree.nodes[index];
    if (node.is_hidden) continue;
    const std::size_t length = DirectoryRecordLength(node.name_length);
    position = RecordStart(position, length) + length;
  }
  return SectorsFor(position) * kSectorSize;
}

// The order of the records is that of ECMA-119 6.8.2 and 9.3: the folder itself, its parent, then its entries in the
// order of their names.
void AppendDirectory(const Tree& tree, const Folder& folder, TimeLimit limit, std::vector<std::uint8_t>& bytes) {
  const std::size_t start = bytes.size();
  AppendRecord(tree.NodeOf(folder), kSelf, limit, start, bytes);
  AppendRecord(tree.NodeOf(tree.ParentOf(folder)), kParent, limit, start, bytes);
  for (NodeIndex index = folder.first; index < folder.first + folder.count; ++index) {
    const Node& node = tree.nodes[index];
    if (!node.is_hidden) AppendRecord(node, tree.NameOf(node), limit, start, bytes);
  }
  bytes.resize(start + static_cast<std::size_t>(SectorsFor(bytes.size() - start)) * kSectorSize, 0);
}

}  // namespace discwright::tools::mkisofs
