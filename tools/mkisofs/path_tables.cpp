// Computes the sizes of path tables and makes their records.
#include "tools/mkisofs/path_tables.h"

#include <algorithm>

#include "base/byte_order.h"
#include "tools/mkisofs/directory_records.h"
#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {
namespace {

// The name of the root is a single zero byte (ECMA-119 9.4.5 and 7.6.2).
std::string_view NameInTable(const Tree& tree, const Folder& folder) {
  return folder.node == 0 ? kSelf : tree.NameOf(tree.NodeOf(folder));
}

PathTableRecordHead MakeHead(const Tree& tree, const Folder& folder, ByteOrder order) {
  PathTableRecordHead head{};
  const std::uint32_t extent = tree.NodeOf(folder).extent;
  // The cast is safe: ReadTree refuses trees with more parent folders than 16 bits can number.
  const auto parent = static_cast<std::uint16_t>(tree.ParentOf(folder).number);
  head.name_length[0] = static_cast<std::uint8_t>(NameInTable(tree, folder).size());
  if (order == ByteOrder::kLittle) {
    base::StoreLe32(head.extent, extent);
    base::StoreLe16(head.parent_number, parent);
  } else {
    base::StoreBe32(head.extent, extent);
    base::StoreBe16(head.parent_number, parent);
  }
  return head;
}

}  // namespace

std::uint64_t PathTableSize(const Tree& tree) {
  std::uint64_t size = 0;
  for (const Folder& folder : tree.folders) {
    const std::size_t name_length = NameInTable(tree, folder).size();
    if (folder.number != 0) size += sizeof(PathTableRecordHead) + name_length + name_length % 2;
  }
  return size;
}

// ECMA-119 6.9.1 and 9.4 define the table. The folders of the tree are already in the order that the standard requires.
std::vector<std::uint8_t> MakePathTable(const Tree& tree, ByteOrder order) {
  std::vector<std::uint8_t> table;
  for (const Folder& folder : tree.folders) {
    if (folder.number == 0) continue;
    const auto head = BytesOf(MakeHead(tree, folder, order));
    const std::string_view name = NameInTable(tree, folder);
    table.insert(table.end(), head.begin(), head.end());
    table.insert(table.end(), name.begin(), name.end());
    if (name.size() % 2 != 0) table.push_back(0);
  }
  return table;
}

}  // namespace discwright::tools::mkisofs
