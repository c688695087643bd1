// Fills in and classifies directory entries.
#include "tools/createdsk/directory_record.h"

#include "base/byte_order.h"

namespace discwright::tools {

RecordKind KindOf(const DirectoryRecord& record) {
  constexpr std::uint8_t kLongNameAttributes = 0x0F;
  if (record.name[0] == 0x00) return RecordKind::kEnd;
  if (record.name[0] == 0xE5) return RecordKind::kDeleted;
  if ((record.attributes & 0x3F) == kLongNameAttributes) return RecordKind::kLongName;
  if ((record.attributes & kVolumeLabelAttribute) != 0) return RecordKind::kLabel;
  return (record.attributes & kFolderAttribute) != 0 ? RecordKind::kFolder : RecordKind::kFile;
}

DirectoryRecord MakeRecord(const ShortName& name, std::uint8_t attributes) {
  DirectoryRecord record{};
  record.name = name;
  record.attributes = attributes;
  base::StoreLe16(record.write_date, kRecordDate);
  return record;
}

void SetContent(DirectoryRecord& record, Cluster first, std::uint32_t size) {
  base::StoreLe16(record.first_cluster, first);
  base::StoreLe32(record.size, size);
}

}  // namespace discwright::tools
