// Big-endian and both-endian integers in byte arrays.
#include "util/both_endian.h"

#include <gmock/gmock.h>

#include <array>

namespace discwright::util {
namespace {

using ::testing::ElementsAre;

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
}  // namespace discwright::util
