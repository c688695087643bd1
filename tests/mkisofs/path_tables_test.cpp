// Tests of the path tables, byte by byte.
#include "tools/mkisofs/path_tables.h"

#include <gtest/gtest.h>

#include "tests/mkisofs/records.h"

namespace discwright::tools::mkisofs {
namespace {

using testing::Hex;
using testing::TreeBuilder;

// The root contains the folders "AB" and "abc"; "abc" contains the folder "x".
Tree ThreeFolders() {
  TreeBuilder builder;
  builder.Open(0);
  const FolderIndex even = builder.AddFolder("AB");
  const FolderIndex odd = builder.AddFolder("abc");
  builder.Open(even);
  builder.Open(odd);
  builder.AddFile("file");
  const FolderIndex below = builder.AddFolder("x");
  std::uint32_t extent = 0x01020304;
  for (const FolderIndex folder : {FolderIndex{0}, even, odd, below})
    builder.tree.NodeOf(builder.tree.folders[folder]).extent = extent++;
  return builder.tree;
}

TEST(PathTable, LittleEndian_HasEveryFolderInOrder) {
  EXPECT_EQ(Hex(MakePathTable(ThreeFolders(), ByteOrder::kLittle)),
            "0100"
            "04030201"
            "0100"
            "0000"
            "0200"
            "05030201"
            "0100"
            "4142"
            "0300"
            "06030201"
            "0100"
            "61626300"
            "0100"
            "07030201"
            "0300"
            "7800");
}

TEST(PathTable, BigEndian_HasTheSameInTheOtherByteOrder) {
  EXPECT_EQ(Hex(MakePathTable(ThreeFolders(), ByteOrder::kBig)),
            "0100"
            "01020304"
            "0001"
            "0000"
            "0200"
            "01020305"
            "0001"
            "4142"
            "0300"
            "01020306"
            "0001"
            "61626300"
            "0100"
            "01020307"
            "0003"
            "7800");
}

TEST(PathTable, Size_IsThatOfWhatIsMade) { EXPECT_EQ(PathTableSize(ThreeFolders()), 10u + 10u + 12u + 10u); }

TEST(PathTable, HiddenFolders_AreNotInIt) {
  Tree tree = ThreeFolders();
  tree.folders[1].number = 0;
  EXPECT_EQ(PathTableSize(tree), 10u + 12u + 10u);
  EXPECT_EQ(MakePathTable(tree, ByteOrder::kLittle).size(), 10u + 12u + 10u);
}

}  // namespace
}  // namespace discwright::tools::mkisofs
