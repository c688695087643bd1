// Little-endian integers in byte arrays.
#include "util/little_endian.h"

#include <gtest/gtest.h>

#include <array>

namespace discwright::util {
namespace {

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

}  // namespace
}  // namespace discwright::util
