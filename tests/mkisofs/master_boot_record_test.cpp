// Tests of the first sector of an image: byte by byte, and which images have one.
#include "tools/mkisofs/master_boot_record.h"

#include "tests/mkisofs/loaders.h"
#include "tests/mkisofs/mastering.h"
#include "tests/mkisofs/records.h"

namespace discwright::tools::mkisofs {
namespace {

using ::discwright::testing::DiskProgram;
using ::discwright::testing::LoaderShape;
using ::discwright::testing::MakeLoader;
using testing::Hex;

std::span<const std::uint8_t> BytesOfText(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// The sector as text with two digits for each byte; empty if there is none.
std::string SectorOf(const std::string& loader, std::uint32_t loader_sector = 21, std::uint32_t sectors = 1000,
                     std::int64_t created = 1000000000) {
  const auto record = MakeMasterBootRecord(BytesOfText(loader), loader_sector, sectors, created);
  return record ? Hex(BytesOf(*record)) : "";
}

// `size` bytes of the sector from `at` on.
std::string Part(const std::string& sector, std::size_t at, std::size_t size) {
  return sector.substr(2 * at, 2 * size);
}
constexpr std::size_t kSignature = 440;
constexpr std::size_t kPartition = 446;
constexpr std::size_t kEnd = kPartition + 5;
constexpr std::size_t kSize = kPartition + 12;

TEST(MasterBootRecord, OfOurLoader_HasEveryField) {
  const std::string program = DiskProgram().substr(0, 436) + std::string("\x54\0\0\0", 4);  // 21 * 4
  EXPECT_EQ(SectorOf(MakeLoader()), Hex(BytesOfText(program)) +
                                        "68254e44"  // 1000000000 + 1000 * 9E3779B1h
                                        "0000"
                                        "80"
                                        "000100"
                                        "17"
                                        "3f1f00"  // sector 3999: cylinder 0, head 63, sector 30 + 1
                                        "00000000"
                                        "a00f0000" +
                                        std::string(2 * 3 * 16, '0') + "55aa");
}

TEST(MasterBootRecord, ShortProgram_HasTheSectorOfTheLoaderInItsLastBytes) {
  const std::string sector = SectorOf(MakeLoader({.program_size = 6}), 0x01020304);
  EXPECT_EQ(Part(sector, 0, 440), "4142100c0804" + std::string(2 * 434, '0'));
}

TEST(MasterBootRecord, EndOfThePartition_IsGivenByCylinderHeadAndSector) {
  const std::string loader = MakeLoader();
  EXPECT_EQ(Part(SectorOf(loader, 21, 1), kEnd, 3), "000400");
  EXPECT_EQ(Part(SectorOf(loader, 21, 16), kEnd, 3), "010100");           // sector 63
  EXPECT_EQ(Part(SectorOf(loader, 21, 4017), kEnd, 3), "000301");         // sector 255 * 63 + 2
  EXPECT_EQ(Part(SectorOf(loader, 21, 300 * 16065), kEnd, 3), "feffff");  // cylinder 1199
  EXPECT_EQ(Part(SectorOf(loader, 21, 75 * 16065), kEnd, 3), "fe7f2b");   // cylinder 299 = 12Bh
}

TEST(MasterBootRecord, EndBeyondTheLastCylinder_IsTheLastAddress) {
  const std::string loader = MakeLoader();
  EXPECT_EQ(Part(SectorOf(loader, 21, 256 * 16065), kEnd, 3), "feffff");
  EXPECT_EQ(Part(SectorOf(loader, 21, 256 * 16065 + 1), kEnd, 3), "feffff");
  EXPECT_EQ(Part(SectorOf(loader, 21, 256 * 16065 - 1), kEnd, 3), "fefbff");
}

TEST(MasterBootRecord, PartitionBeyond32Bits_HasTheLargestSize) {
  const std::string loader = MakeLoader();
  EXPECT_EQ(Part(SectorOf(loader, 21, 0x3FFFFFFF), kSize, 4), "fcffffff");
  EXPECT_EQ(Part(SectorOf(loader, 21, 0x40000000), kSize, 4), "ffffffff");
  EXPECT_EQ(Part(SectorOf(loader, 21, 0xFFFFFFFF), kSize, 4), "ffffffff");
}

TEST(MasterBootRecord, DiskSignature_DependsOnDateAndSizeAndIsNeverZero) {
  const std::string loader = MakeLoader();
  const auto signature = [&](std::uint32_t sectors, std::int64_t created) {
    return Part(SectorOf(loader, 21, sectors, created), kSignature, 4);
  };
  EXPECT_NE(signature(1000, 5), signature(1000, 6));
  EXPECT_NE(signature(1000, 5), signature(1001, 5));
  EXPECT_NE(signature(1000, 5), signature(1000, 0x100000005));
  EXPECT_EQ(signature(1, 0x61C8864F), "b179379e");  // the sum is 0
}

class OtherBootImage : public ::testing::TestWithParam<LoaderShape> {};

TEST_P(OtherBootImage, LeavesTheSectorEmpty) { EXPECT_EQ(SectorOf(MakeLoader(GetParam())), ""); }

constexpr std::size_t kBehindTheRest = 3 * 2048;
INSTANTIATE_TEST_SUITE_P(All, OtherBootImage,
                         ::testing::Values(LoaderShape{.mark = "DWLOADEX"}, LoaderShape{.mark = "dwloader"},
                                           LoaderShape{.program_size = 0}, LoaderShape{.program_size = 4},
                                           LoaderShape{.program_size = 441}, LoaderShape{.program_size = 0xFFFF},
                                           LoaderShape{.size = 75}, LoaderShape{.size = 0}, LoaderShape{.size = 2048},
                                           LoaderShape{.size = kBehindTheRest},
                                           LoaderShape{.size = kBehindTheRest + 439},
                                           LoaderShape{.rest_sectors = 0xFFFF, .size = 0x8000}));

TEST(MasterBootRecord, ProgramAtTheVeryEndOfTheFile_IsTaken) {
  EXPECT_NE(SectorOf(MakeLoader({.size = kBehindTheRest + 440})), "");
}

TEST(MasterBootRecord, LoaderThatNoDiskSectorNumberReaches_LeavesTheSectorEmpty) {
  EXPECT_NE(SectorOf(MakeLoader(), 0x3FFFFFFF), "");
  EXPECT_EQ(SectorOf(MakeLoader(), 0x40000000), "");
}

class SystemArea : public discwright::testing::Mastering {
 protected:
  SystemArea() {
    folder.Write("tree/boot/loader.bin", MakeLoader());
    source_date = "1000000000";
  }

  // The system area of an image.
  std::string Made(const std::vector<std::string>& words) {
    MasteredImage(words);
    return image.substr(0, kArea);
  }
  static constexpr std::size_t kArea = 16 * 2048;
};

TEST_F(SystemArea, OfAnImageWithOurLoader_BeginsWithItsProgram) {
  const std::string area = Made(ScriptWords());
  const auto sectors = static_cast<std::uint32_t>(image.size() / 2048);
  EXPECT_EQ(Hex(BytesOfText(area.substr(0, 512))), SectorOf(MakeLoader(), 21, sectors));
  EXPECT_EQ(area.substr(512), std::string(kArea - 512, '\0'));
}

TEST_F(SystemArea, LoaderWithTwoNames_BeginsWithItsProgram) {
  folder.MakeHardLink("tree/boot/loader.bin", "tree/another");
  EXPECT_EQ(Made(ScriptWords()).substr(510, 2), "\x55\xAA");
}

TEST_F(SystemArea, WithoutBootImageOrWithAnotherOne_IsEmpty) {
  EXPECT_EQ(Made({}), std::string(kArea, '\0'));
  folder.Write("tree/boot/loader.bin", std::string(5000, 'x'));
  EXPECT_EQ(Made(ScriptWords()), std::string(kArea, '\0'));
  folder.Write("tree/boot/loader.bin", "short");
  EXPECT_EQ(Made(ScriptWords()), std::string(kArea, '\0'));
}

TEST_F(SystemArea, WithNoStick_IsEmptyAndNothingElseChanges) {
  Made(ScriptWords());
  const std::string with = image;
  std::vector<std::string> words = ScriptWords();
  words.push_back("-no-stick");
  EXPECT_EQ(Made(words), std::string(kArea, '\0'));
  EXPECT_EQ(image.substr(kArea), with.substr(kArea));
}

}  // namespace
}  // namespace discwright::tools::mkisofs
