// Tests of directories: their records byte by byte, and records at the border of a sector.
#include "tools/mkisofs/directory_records.h"

#include <gtest/gtest.h>

#include "tests/mkisofs/records.h"
#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {
namespace {

using testing::Hex;
using testing::TreeBuilder;

constexpr std::size_t kSelfAndParent = 68;

std::vector<std::uint8_t> Directory(const Tree& tree, FolderIndex folder = 0, TimeLimit limit = kNoTimeLimit) {
  std::vector<std::uint8_t> bytes;
  AppendDirectory(tree, tree.folders[folder], limit, bytes);
  EXPECT_EQ(bytes.size(), DirectorySize(tree, tree.folders[folder]));
  return bytes;
}

// A root folder with one file for each length of a name.
Tree TreeWithNames(std::initializer_list<std::size_t> lengths) {
  TreeBuilder builder;
  builder.Open(0);
  char letter = 'a';
  for (const std::size_t length : lengths) builder.AddFile(std::string(length, letter++));
  return builder.tree;
}

TEST(DirectoryRecord, OfFileAndFolder_HasEveryByteOfTheStandard) {
  TreeBuilder builder;
  builder.Open(0);
  Node& file = builder.AddFile("AB", 0x0A0B0C0D);
  file.extent = 0x01020304;
  file.modified = 1000000000;
  builder.AddFolder("abc");
  builder.tree.nodes[2].extent = 0x19;
  builder.tree.nodes[2].size = 0x800;
  builder.tree.nodes[0].extent = 0x18;
  builder.tree.nodes[0].size = 0x1000;
  const std::string date = "46010100000000";  // 1970-01-01
  const auto bytes = Directory(builder.tree);
  EXPECT_EQ(Hex(std::span(bytes).first(140)),
            "2200"
            "1800000000000018"
            "0010000000001000" +
                date +
                "020000"
                "01000001"
                "01"
                "00"
                "2200"
                "1800000000000018"
                "0010000000001000" +
                date +
                "020000"
                "01000001"
                "01"
                "01"
                "2400"
                "0403020101020304"
                "0d0c0b0a0a0b0c0d"
                "65090901"
                "2e2800"
                "000000"
                "01000001"
                "02"
                "4142"
                "00"
                "2400"
                "1900000000000019"
                "0008000000000800" +
                date +
                "020000"
                "01000001"
                "03"
                "616263");
}

TEST(DirectoryRecord, Time_IsNotLaterThanTheLimit) {
  Node node;
  node.modified = 1000000000;
  EXPECT_EQ(Hex(MakeDirectoryRecordHead(node, 1, 0).recorded), "46010100000000");
  EXPECT_EQ(Hex(MakeDirectoryRecordHead(node, 1, 1000000001).recorded),
            "6509090"
            "12e2800");
}

TEST(DirectoryRecord, Lengths_AreEven) {
  EXPECT_EQ(DirectoryRecordLength(1), 34u);
  EXPECT_EQ(DirectoryRecordLength(2), 36u);
  EXPECT_EQ(DirectoryRecordLength(207), 240u);
}

TEST(Directory, Parent_IsTheFolderAbove) {
  TreeBuilder builder;
  builder.Open(0);
  const FolderIndex middle = builder.AddFolder("middle");
  builder.Open(middle);
  const FolderIndex leaf = builder.AddFolder("leaf");
  builder.Open(leaf);
  builder.tree.NodeOf(builder.tree.folders[middle]).extent = 0x51;
  builder.tree.NodeOf(builder.tree.folders[leaf]).extent = 0x52;
  const auto bytes = Directory(builder.tree, leaf);
  EXPECT_EQ(bytes[2], 0x52);
  EXPECT_EQ(bytes[34 + 2], 0x51);
}

TEST(Directory, HiddenNames_AreNotInIt) {
  TreeBuilder builder;
  builder.Open(0);
  builder.AddFile("a").is_hidden = true;
  builder.AddFile("b");
  const auto bytes = Directory(builder.tree);
  EXPECT_EQ(bytes[kSelfAndParent + 33], 'b');
  EXPECT_EQ(bytes[kSelfAndParent + 34], 0);
}

// The root and its parent take 68 bytes, eight records 240 each, the last one 60: together exactly 2048.
TEST(Directory, RecordThatEndsAtTheBorder_StaysInTheSector) {
  const auto bytes = Directory(TreeWithNames({207, 207, 207, 207, 207, 207, 207, 207, 27}));
  EXPECT_EQ(bytes.size(), kSectorSize);
  EXPECT_EQ(bytes[1988], 60);
  EXPECT_EQ(bytes[2047], 'i');
}

TEST(Directory, RecordThatWouldCrossTheBorder_BeginsTheNextSector) {
  const auto bytes = Directory(TreeWithNames({207, 207, 207, 207, 207, 207, 207, 207, 28}));
  EXPECT_EQ(bytes.size(), 2 * kSectorSize);
  EXPECT_EQ(Hex(std::span(bytes).subspan(1988, 60)), std::string(2 * 60, '0'));
  EXPECT_EQ(bytes[2048], 62);
  EXPECT_EQ(bytes[2048 + 33], 'i');
}

TEST(Directory, RecordBehindAFullSector_BeginsTheNext) {
  const auto bytes = Directory(TreeWithNames({207, 207, 207, 207, 207, 207, 207, 207, 27, 1}));
  EXPECT_EQ(bytes.size(), 2 * kSectorSize);
  EXPECT_EQ(bytes[2048], 34);
  EXPECT_EQ(bytes[2048 + 33], 'j');
}

TEST(Directory, OfAnEmptyFolder_IsOneSector) {
  const auto bytes = Directory(TreeWithNames({}));
  EXPECT_EQ(bytes.size(), kSectorSize);
  EXPECT_EQ(Hex(std::span(bytes).subspan(kSelfAndParent)), std::string(2 * (2048 - kSelfAndParent), '0'));
}

TEST(Directory, BehindAnother_IsPlacedByItsOwnSectors) {
  const Tree tree = TreeWithNames({207, 207, 207, 207, 207, 207, 207, 207, 28});
  std::vector<std::uint8_t> bytes;
  AppendDirectory(tree, tree.folders[0], kNoTimeLimit, bytes);
  const std::vector<std::uint8_t> once = bytes;
  AppendDirectory(tree, tree.folders[0], kNoTimeLimit, bytes);
  EXPECT_EQ(std::vector(bytes.begin() + static_cast<std::ptrdiff_t>(once.size()), bytes.end()), once);
}

}  // namespace
}  // namespace discwright::tools::mkisofs
