// Tests of the memory map: the room that is found in free memory, past what is not free.
#include "boot/loader/memory_map.h"

#include <gmock/gmock.h>

namespace discwright::loader {
namespace {

constexpr std::uint32_t kMiB = 0x100000;
constexpr std::uint32_t kEnd = 0xFFFFFFFF;
constexpr std::uint32_t kReserved = 2;

// As a PC with 64 MB has it.
MemoryMap Usual() {
  MemoryMap map;
  map.Add({0, 0x9FC00, kFreeMemory});
  map.Add({0x9FC00, 0x400, kReserved});
  map.Add({kMiB, 63 * kMiB - 0x20000, kFreeMemory});
  map.Add({64 * kMiB - 0x20000, 0x20000, kReserved});
  return map;
}

TEST(MemoryMap, RoomOfASize_IsAtTheTopOfTheHighestFreeRange) {
  const auto room = Usual().HighestRoom(kMiB, 4096, kMiB, kEnd);
  ASSERT_TRUE(room.has_value());
  EXPECT_EQ(room->begin, 63 * kMiB - 0x20000);
  EXPECT_EQ(room->end, 64 * kMiB - 0x20000);
}

TEST(MemoryMap, Room_BeginsAtAMultipleOfTheAlignment) {
  const auto room = Usual().HighestRoom(1001, 4096, kMiB, kEnd);
  ASSERT_TRUE(room.has_value());
  EXPECT_EQ(room->begin % 4096, 0U);
  EXPECT_EQ(room->begin, 64 * kMiB - 0x20000 - 4096);
  EXPECT_EQ(room->end, room->begin + 1001);
}

TEST(MemoryMap, Room_IsBetweenTheBounds) {
  const auto below = Usual().HighestRoom(kMiB, 4096, kMiB, 16 * kMiB);
  ASSERT_TRUE(below.has_value());
  EXPECT_EQ(below->end, 16 * kMiB);
  EXPECT_FALSE(Usual().HighestRoom(3 * kMiB, 4096, 62 * kMiB, kEnd).has_value());
  EXPECT_TRUE(Usual().HighestRoom(kMiB, 4096, 62 * kMiB, kEnd).has_value());
}

TEST(MemoryMap, RangeThatIsNotFreeInsideAFreeOne_IsAvoided) {
  MemoryMap map = Usual();
  map.Add({40 * kMiB, kMiB, kReserved});
  map.Add({63 * kMiB, kMiB / 2, 3});
  EXPECT_EQ(map.HighestRoom(kMiB / 4, 4096, kMiB, kEnd)->begin, 63 * kMiB + kMiB * 5 / 8 - 0x0);
  EXPECT_EQ(map.HighestRoom(20 * kMiB, 4096, kMiB, kEnd)->end, 63 * kMiB);
  EXPECT_EQ(map.HighestRoom(30 * kMiB, 4096, kMiB, kEnd)->end, 40 * kMiB);
  EXPECT_FALSE(map.HighestRoom(45 * kMiB, 4096, kMiB, kEnd).has_value());
}

TEST(MemoryMap, MemoryAboveFourGigabytes_IsNotUsed) {
  MemoryMap map;
  map.Add({std::uint64_t{1} << 32U, std::uint64_t{1} << 32U, kFreeMemory});
  EXPECT_FALSE(map.HighestRoom(4096, 4096, 0, kEnd).has_value());
  EXPECT_EQ(map.FreeKilobytes(), std::uint64_t{1} << 22U);
}

TEST(MemoryMap, RangeThatReachesPastTheLastAddress_EndsThere) {
  MemoryMap map;
  map.Add({kMiB, ~std::uint64_t{0}, kFreeMemory});
  const auto room = map.HighestRoom(4096, 4096, 0, kEnd);
  ASSERT_TRUE(room.has_value());
  EXPECT_EQ(room->begin, 0xFFFFE000U);
}

TEST(MemoryMap, NoFreeMemoryAndNoSize_HaveNoRoom) {
  EXPECT_FALSE(MemoryMap().HighestRoom(1, 1, 0, kEnd).has_value());
  EXPECT_FALSE(Usual().HighestRoom(0, 1, 0, kEnd).has_value());
  EXPECT_FALSE(Usual().HighestRoom(0xFFFFFFFF, 4096, 0, kEnd).has_value());
}

TEST(MemoryMap, FullMap_TakesNoMoreRanges) {
  MemoryMap map;
  for (std::size_t i = 0; i < MemoryMap::kCapacity; ++i) EXPECT_TRUE(map.Add({i * 4096, 4096, kFreeMemory}));
  EXPECT_FALSE(map.Add({kMiB, 4096, kReserved}));
  EXPECT_TRUE(map.Add({kMiB, 0, kReserved}));  // an empty range says nothing
  EXPECT_EQ(map.ranges().size(), MemoryMap::kCapacity);
}

}  // namespace
}  // namespace discwright::loader
