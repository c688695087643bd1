// Tests of the boot sector, byte by byte.
#include "tools/createdsk/boot_sector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/createdsk/disks.h"

namespace discwright::tools {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes BlockBytes(const DiskFormat& format) {
  BootSector sector{};
  StoreParameterBlock(MakeParameterBlock(format), sector);
  return {sector.begin() + 3, sector.begin() + 62};
}

TEST(ParameterBlock, Of144_HasExactBytes) {
  const Bytes expected = {'D',  'W',  'R',  'I',  'G',  'H', 'T', ' ',  // BS_OEMName
                          0x00, 0x02, 1,    1,    0,    2,              // 512 bytes, 1 sector, 1 reserved, 2 FATs
                          0xE0, 0x00, 0x40, 0x0B, 0xF0, 9,   0,         // 224 entries, 2880 sectors, F0, 9
                          18,   0,    2,    0,    0,    0,   0,   0,   0,   0,   0,
                          0,                                     // geometry, hidden, 32-bit total
                          0,    0,    0x29, 0,    0,    0,   0,  // drive, reserved, signature, serial
                          'N',  'O',  ' ',  'N',  'A',  'M', 'E', ' ', ' ', ' ', ' ',  // BS_VolLab
                          'F',  'A',  'T',  '1',  '2',  ' ', ' ', ' '};                // BS_FilSysType
  EXPECT_EQ(BlockBytes(testing::Format144()), expected);
}

TEST(ParameterBlock, Of288_DiffersInItsFourFieldsOnly) {
  Bytes expected = BlockBytes(testing::Format144());
  expected[13 - 3] = 2;     // BPB_SecPerClus
  expected[17 - 3] = 0xF0;  // BPB_RootEntCnt, 240
  expected[19 - 3] = 0x80;  // BPB_TotSec16, 5760
  expected[20 - 3] = 0x16;
  expected[24 - 3] = 36;  // BPB_SecPerTrk
  EXPECT_EQ(BlockBytes(testing::Format288()), expected);
}

TEST(ParameterBlock, StoredInSector_KeepsJumpCodeAndSignature) {
  BootSector sector;
  sector.fill(0xCC);
  StoreParameterBlock(MakeParameterBlock(testing::Format144()), sector);
  EXPECT_EQ(std::count(sector.begin(), sector.begin() + 3, 0xCC), 3);
  EXPECT_EQ(std::count(sector.begin() + 62, sector.end(), 0xCC), 450);
  EXPECT_EQ(std::count(sector.begin() + 3, sector.begin() + 62, 0xCC), 0);
}

TEST(ParameterBlock, LoadedAfterStoring_IsTheSame) {
  BootSector sector{};
  ParameterBlock block = MakeParameterBlock(testing::Format288());
  block.volume_serial = {1, 2, 3, 4};
  StoreParameterBlock(block, sector);
  EXPECT_EQ(LoadParameterBlock(sector).volume_serial, block.volume_serial);
  EXPECT_EQ(LoadParameterBlock(sector).root_entries, block.root_entries);
}

TEST(ParameterBlock, OfOldSystemWithCodeBehindIt_GetsTheFieldsOfToday) {
  ParameterBlock block{};
  block.media = 0xF9;
  block.extended_signature = 0xEB;
  block.volume_label.fill(0xEB);
  CompleteParameterBlock(block);
  EXPECT_EQ(block.extended_signature, 0x29);
  EXPECT_EQ(block.volume_label, kNoLabel);
  EXPECT_EQ(block.media, 0xF9);
}

TEST(ParameterBlock, ThatIsComplete_StaysAsItIs) {
  ParameterBlock block = MakeParameterBlock(testing::Format144());
  block.volume_label.fill('X');
  block.drive_number = 0x80;
  CompleteParameterBlock(block);
  EXPECT_EQ(block.volume_label[10], 'X');
  EXPECT_EQ(block.drive_number, 0x80);
}

TEST(NoSystemBootSector, ItsCode_JumpsOverTheBlockAndPrintsItsMessage) {
  const BootSector sector = NoSystemBootSector();
  EXPECT_EQ(sector[0], 0xEB);
  EXPECT_EQ(sector[1] + 2, 62);
  EXPECT_TRUE(HasBootSignature(sector));
  const std::size_t message = 0x5D;  // what "mov si" at 48h loads
  EXPECT_EQ(Bytes(sector.begin() + 0x48, sector.begin() + 0x4B), (Bytes{0xBE, message, 0x7C}));
  EXPECT_STREQ(reinterpret_cast<const char*>(&sector[message]),
               "This disk holds no system. Remove it and press a key to restart.\r\n");
}

TEST(NoSystemBootSector, ItsCode_EndsWithKeyAndRestart) {
  const BootSector sector = NoSystemBootSector();
  EXPECT_EQ(Bytes(sector.begin() + 0x58, sector.begin() + 0x5D), (Bytes{0x98, 0xCD, 0x16, 0xCD, 0x19}));
  EXPECT_EQ(0x50 + sector[0x4F], 0x58);                            // the jump at the message's end
  EXPECT_EQ(0x58 + static_cast<std::int8_t>(sector[0x57]), 0x4B);  // the jump back to the next character
}

TEST(HasBootSignature, OtherLastBytes_AreNone) {
  BootSector sector = NoSystemBootSector();
  std::swap(sector[510], sector[511]);
  EXPECT_FALSE(HasBootSignature(sector));
}

TEST(SerialOf, KnownBytes_GiveTheKnownHashes) {
  EXPECT_EQ(SerialOf({}), 0x811C9DC5U);
  EXPECT_EQ(SerialOf(Bytes{'a'}), 0xE40C292CU);
  EXPECT_EQ(SerialOf(Bytes{'f', 'o', 'o', 'b', 'a', 'r'}), 0xBF9CF968U);
}

}  // namespace
}  // namespace discwright::tools
