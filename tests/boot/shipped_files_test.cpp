// Tests of the boot programs in the program folder, and of the test programs that replace SETUPLDR.BIN.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/boot/boot_fixture.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::SizeIs;

// How often a text occurs in the bytes.
std::size_t Count(const std::string& bytes, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = bytes.find(text); at != std::string::npos; at = bytes.find(text, at + 1)) ++count;
  return count;
}

std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 'a' - 'A') : letter;
  });
  return text;
}

TEST(ShippedFiles, BootSectors_AreOneCdSectorWithOneNameToPatch) {
  const std::string sector = ShippedFile("bootsect/w2ksect.bin");
  EXPECT_THAT(sector, SizeIs(2048));
  EXPECT_EQ(Count(sector, "I386"), 1U);
  EXPECT_EQ(Count(LowerCase(sector), "i386"), 1U);
  EXPECT_EQ(ShippedFile("bootsect/erdc.bin"), sector);
  EXPECT_EQ(ShippedFile("bootsect/oobc.bin"), sector);
}

TEST(ShippedFiles, SetupLoadersOfTests_NameTheirFolderOnce) {
  EXPECT_EQ(Count(SetupLoader(), "i386"), 1U);
  EXPECT_EQ(Count(SetupLoader(), "I386"), 0U);
  EXPECT_EQ(Count(SetupLoader(kUsualSize, "upper"), "I386"), 1U);
  EXPECT_EQ(Count(SetupLoader(kUsualSize, "upper"), "i386"), 0U);
  EXPECT_THAT(SetupLoader(), SizeIs(kUsualSize));
}

TEST_F(BootSector, DamagedSetupLoaderOfTests_ReportsTheDamage) {
  std::string loader = SetupLoader();
  loader.back() ^= 1;
  WriteFile(tree / "I386/SETUPLDR.BIN", loader);
  Master();
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForScreen("SETUPLDR: damaged"));
  EXPECT_TRUE(emulator.WaitForSerial("SETUPLDR: damaged"));
}

}  // namespace
}  // namespace discwright::testing
