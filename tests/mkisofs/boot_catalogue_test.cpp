// Tests of the boot record and the boot catalogue, byte by byte.
#include "tools/mkisofs/boot_catalogue.h"

#include <gtest/gtest.h>

#include "tests/mkisofs/records.h"

namespace discwright::tools::mkisofs {
namespace {

using testing::Hex;

TEST(BootRecord, NamesTheSpecificationAndTheCatalogue) {
  const std::string name = "454c20544f5249544f2053504543494649434154494f4e";  // EL TORITO SPECIFICATION
  EXPECT_EQ(Hex(BytesOf(MakeBootRecord(0x01020314))),
            "00434430303101" + name + std::string(2 * 9 + 2 * 32, '0') + "14030201" + std::string(2 * 1973, '0'));
}

TEST(BootCatalogue, HasAValidationAndADefaultEntry) {
  // 0001 + "Ab" 6241 + key AA55 = 0C97 in 16 bits; the checksum F369 makes the sum 0.
  EXPECT_EQ(Hex(BytesOf(MakeBootCatalogue("Ab", 4, 0x15))),
            "01000000"
            "4162" +
                std::string(2 * 22, '0') +
                "69f3"
                "55aa"
                "88000000"
                "00000400"
                "15000000" +
                std::string(2 * (20 + 1984), '0'));
}

TEST(BootCatalogue, WordsOfTheValidationEntry_AddUpToZero) {
  for (const char* id : {"", "KORVANE LTD", "\xFF\xFF\xFF\xFF", "a name that is longer than its field"}) {
    const auto bytes = BytesOf(MakeBootCatalogue(id, 1, 1));
    unsigned sum = 0;
    for (std::size_t i = 0; i < 32; i += 2) sum += bytes[i] + 256u * bytes[i + 1];
    EXPECT_EQ(sum & 0xFFFF, 0u) << id;
  }
}

TEST(BootCatalogue, LongId_IsCut) {
  const auto bytes = BytesOf(MakeBootCatalogue("123456789012345678901234567890", 1, 1));
  EXPECT_EQ(std::string(bytes.begin() + 4, bytes.begin() + 28), "123456789012345678901234");
}

TEST(BootLoadSectors, WithoutTheOption_AreAllOfTheImage) {
  Options options;
  EXPECT_EQ(BootLoadSectors(options, 1), 1);
  EXPECT_EQ(BootLoadSectors(options, 512), 1);
  EXPECT_EQ(BootLoadSectors(options, 513), 2);
  EXPECT_EQ(BootLoadSectors(options, 0xFFFFFFFF), 0xFFFF);
  options.boot_load_sectors = 4;
  EXPECT_EQ(BootLoadSectors(options, 100000), 4);
}

}  // namespace
}  // namespace discwright::tools::mkisofs
