// Tests of integers in byte arrays.
#include "base/byte_order.h"

#include <gmock/gmock.h>

#include <array>

namespace discwright::base {
namespace {

using ::testing::ElementsAre;

TEST(LittleEndian, SixteenBits_AreStoredLowByteFirst) {
  std::array<std::uint8_t, 2> field{};
  StoreLe16(field, 0xA1B2);
  EXPECT_EQ(field, (std::array<std::uint8_t, 2>{0xB2, 0xA1}));
  EXPECT_EQ(LoadLe16(field), 0xA1B2);
}

TEST(LittleEndian, ThirtyTwoBitsWithHighBit_AreStoredLowByteFirst) {
  std::array<std::uint8_t, 4> field{};
  StoreLe32(field, 0xF1E2D3C4);
  EXPECT_EQ(field, (std::array<std::uint8_t, 4>{0xC4, 0xD3, 0xE2, 0xF1}));
  EXPECT_EQ(LoadLe32(field), 0xF1E2D3C4U);
}

TEST(BothEndian, BigEndianIntegers_HaveTheirHighestByteFirst) {
  std::array<std::uint8_t, 2> two{};
  StoreBe16(two, 0x0102);
  EXPECT_THAT(two, ElementsAre(1, 2));
  EXPECT_EQ(LoadBe16(two), 0x0102);
  std::array<std::uint8_t, 4> four{};
  StoreBe32(four, 0xFEDCBA98);
  EXPECT_THAT(four, ElementsAre(0xFE, 0xDC, 0xBA, 0x98));
  EXPECT_EQ(LoadBe32(four), 0xFEDCBA98);
}

TEST(BothEndian, BothOrders_StandOneBehindTheOther) {
  std::array<std::uint8_t, 4> four{};
  StoreBoth16(four, 0x0102);
  EXPECT_THAT(four, ElementsAre(2, 1, 1, 2));
  std::array<std::uint8_t, 8> eight{};
  StoreBoth32(eight, 0x01020304);
  EXPECT_THAT(eight, ElementsAre(4, 3, 2, 1, 1, 2, 3, 4));
}

}  // namespace
}  // namespace discwright::base
