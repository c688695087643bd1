// Tests of FAT12 entries and cluster chains.
#include "tools/createdsk/fat_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace discwright::tools {
namespace {

using ::testing::HasSubstr;
using Bytes = std::vector<std::uint8_t>;

Bytes Packed(const std::vector<Cluster>& entries) {
  Bytes fat((entries.size() * 3 + 1) / 2);
  for (std::size_t i = 0; i < entries.size(); ++i) StoreFatEntry(fat, i, entries[i]);
  return fat;
}

FatTable TableOf(const std::vector<Cluster>& entries) { return {Packed(entries), entries.size() - 2}; }

std::string FailureOf(const std::vector<Cluster>& entries, Cluster first) {
  FatTable table = TableOf(entries);
  Chain chain;
  return table.ClaimChain(first, chain).failure;
}

TEST(FatEntry, EvenAndOddCluster_ShareTheMiddleByte) {
  Bytes fat(6);
  StoreFatEntry(fat, 2, 0x123);
  EXPECT_EQ(fat, (Bytes{0, 0, 0, 0x23, 0x01, 0}));
  StoreFatEntry(fat, 3, 0xABC);
  EXPECT_EQ(fat, (Bytes{0, 0, 0, 0x23, 0xC1, 0xAB}));
  EXPECT_EQ(LoadFatEntry(fat, 2), 0x123);
  EXPECT_EQ(LoadFatEntry(fat, 3), 0xABC);
}

TEST(FatEntry, StoredAgain_LeavesItsNeighbours) {
  Bytes fat(6, 0xFF);
  StoreFatEntry(fat, 1, 0);
  EXPECT_EQ(fat, (Bytes{0xFF, 0x0F, 0x00, 0xFF, 0xFF, 0xFF}));
  StoreFatEntry(fat, 2, 0);
  EXPECT_EQ(fat, (Bytes{0xFF, 0x0F, 0x00, 0x00, 0xF0, 0xFF}));
}

TEST(FatEntry, OverASectorBorder_IsSplitBetweenTheSectors) {
  Bytes fat(1024);
  StoreFatEntry(fat, 341, 0xABC);
  EXPECT_EQ(fat[511], 0xC0);
  EXPECT_EQ(fat[512], 0xAB);
  EXPECT_EQ(LoadFatEntry(fat, 341), 0xABC);
}

TEST(FatTable, ChainOverASectorBorderOfTheFat_IsFollowedInOrder) {
  std::vector<Cluster> entries(400);
  entries[340] = 341;
  entries[341] = 342;
  entries[342] = 5;
  entries[5] = 0xFF8;
  FatTable table = TableOf(entries);
  Chain chain;
  ASSERT_TRUE(table.ClaimChain(340, chain).ok());
  EXPECT_EQ(chain, (Chain{340, 341, 342, 5}));
}

TEST(FatTable, ChainToAClusterBehindTheLast_IsRefused) { EXPECT_THAT(FailureOf({0, 0, 3, 4}, 2), HasSubstr("leaves")); }
TEST(FatTable, ChainIntoAFreeCluster_IsRefused) { EXPECT_THAT(FailureOf({0, 0, 3, 0}, 2), HasSubstr("leaves")); }
TEST(FatTable, ChainIntoABadCluster_IsRefused) { EXPECT_THAT(FailureOf({0, 0, 0xFF7}, 2), HasSubstr("leaves")); }
TEST(FatTable, ChainFromClusterZero_IsRefused) { EXPECT_THAT(FailureOf({0, 0, 0xFFF}, 0), HasSubstr("leaves")); }
TEST(FatTable, ChainFromClusterOne_IsRefused) { EXPECT_THAT(FailureOf({0, 0xFFF, 0xFFF}, 1), HasSubstr("leaves")); }
TEST(FatTable, ChainFromAnEndMark_IsRefused) { EXPECT_THAT(FailureOf({0, 0, 0xFFF}, 0xFFF), HasSubstr("leaves")); }
TEST(FatTable, ChainFrom16Bits_IsRefused) { EXPECT_THAT(FailureOf({0, 0, 0xFFF}, 0xFFFF), HasSubstr("leaves")); }
TEST(FatTable, ChainInACircle_IsRefused) { EXPECT_THAT(FailureOf({0, 0, 3, 4, 2}, 2), HasSubstr("meets itself")); }

TEST(FatTable, ChainThatMeetsAnother_IsRefused) {
  FatTable table = TableOf({0, 0, 4, 4, 0xFFF});
  Chain chain;
  ASSERT_TRUE(table.ClaimChain(2, chain).ok());
  EXPECT_THAT(table.ClaimChain(3, chain).failure, HasSubstr("another file"));
}

TEST(FatTable, LongerChain_TakesTheFirstFreeClusters) {
  FatTable table = TableOf({0xFF0, 0xFFF, 0, 0xFFF, 0, 0xFF7, 0});
  EXPECT_EQ(table.FreeClusters(), 3U);
  Chain chain = {3};
  table.Resize(chain, 4);
  EXPECT_EQ(chain, (Chain{3, 2, 4, 6}));
  EXPECT_EQ(table.entries(), (std::vector<Cluster>{0xFF0, 0xFFF, 4, 2, 6, 0xFF7, 0xFFF}));
  EXPECT_EQ(table.FreeClusters(), 0U);
}

TEST(FatTable, ShorterChain_FreesItsLastClusters) {
  FatTable table = TableOf({0xFF0, 0xFFF, 3, 4, 0xFFF});
  Chain chain = {2, 3, 4};
  table.Resize(chain, 1);
  EXPECT_EQ(table.entries(), (std::vector<Cluster>{0xFF0, 0xFFF, 0xFFF, 0, 0}));
  table.Resize(chain, 0);
  EXPECT_TRUE(chain.empty());
  EXPECT_EQ(table.FreeClusters(), 3U);
}

TEST(FatTable, Stored_LeavesTheBytesBehindTheLastEntry) {
  const FatTable table = TableOf({0xFF0, 0xFFF, 0xFFF});
  Bytes fat(7, 0xAA);
  table.Store(fat);
  EXPECT_EQ(fat, (Bytes{0xF0, 0xFF, 0xFF, 0xFF, 0xAF, 0xAA, 0xAA}));
}

}  // namespace
}  // namespace discwright::tools
