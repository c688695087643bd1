// Tests of directory entries, byte by byte.
#include "tools/createdsk/directory_record.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace discwright::tools {
namespace {

TEST(DirectoryRecord, OfAFile_HasExactBytes) {
  DirectoryRecord record = MakeRecord(*ToShortName("README.TXT"), kArchiveAttribute);
  SetContent(record, 0x0123, 0x00ABCDEF);
  std::vector<std::uint8_t> bytes(sizeof record);
  std::memcpy(bytes.data(), &record, sizeof record);
  const std::vector<std::uint8_t> expected = {'R',  'E', 'A',  'D',  'M',  'E',  ' ',  ' ',  'T',  'X', 'T',
                                              0x20, 0,   0,    0,    0,    0,    0,    0,    0,    0,   0,
                                              0,    0,   0x21, 0x28, 0x23, 0x01, 0xEF, 0xCD, 0xAB, 0};  // 2000-01-01
  EXPECT_EQ(bytes, expected);
}

RecordKind KindWith(std::uint8_t first_byte, std::uint8_t attributes) {
  DirectoryRecord record{};
  record.name[0] = first_byte;
  record.attributes = attributes;
  return KindOf(record);
}

TEST(DirectoryRecord, OfEachKind_IsRecognisedByFirstByteAndAttributes) {
  EXPECT_EQ(KindWith(0x00, 0x20), RecordKind::kEnd);
  EXPECT_EQ(KindWith(0xE5, 0x20), RecordKind::kDeleted);
  EXPECT_EQ(KindWith(0xE5, 0x0F), RecordKind::kDeleted);
  EXPECT_EQ(KindWith('A', 0x00), RecordKind::kFile);
  EXPECT_EQ(KindWith('A', 0x27), RecordKind::kFile);
  EXPECT_EQ(KindWith('A', 0x10), RecordKind::kFolder);
  EXPECT_EQ(KindWith('A', 0x08), RecordKind::kLabel);
  EXPECT_EQ(KindWith('A', 0x28), RecordKind::kLabel);
  EXPECT_EQ(KindWith('A', 0x0F), RecordKind::kLongName);
}

}  // namespace
}  // namespace discwright::tools
