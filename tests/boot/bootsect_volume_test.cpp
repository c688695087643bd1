// Tests of the CD boot sector of Windows Setup on unusual volumes: images of our mkisofs with changed bytes.
#include <utility>

#include "tests/boot/boot_fixture.h"

namespace discwright::testing {
namespace {

// Offsets in a directory record.
constexpr std::size_t kAttributeSectors = 1;
constexpr std::size_t kExtent = 2;
constexpr std::size_t kSize = 10;
constexpr std::size_t kFlags = 25;
constexpr std::size_t kName = 33;

class BootSectorVolume : public BootSector {
 protected:
  // Masters an image and reads its bytes, so that the test can change them.
  void MasterBytes() {
    WriteFile(tree / "I386/SETUPLDR.BIN", SetupLoader());
    Master();
    bytes = ReadFile(image);
  }

  Emulator Start() const {
    WriteFile(image, bytes);
    return Emulator(CdDrive(image));
  }

  char* Sector(std::uint32_t number) { return &bytes.at(std::size_t{number} * 2048); }

  // The directory record of an entry of a folder.
  char* Record(const std::string& folder, const std::string& name) {
    return &bytes.at(bytes.find(name, std::size_t{Entry(folder).extent} * 2048) - kName);
  }

  std::string bytes;
};

TEST_F(BootSectorVolume, PrimaryBehindOtherDescriptors_IsFound) {
  MasterBytes();
  std::swap_ranges(Sector(16), Sector(17), Sector(18));
  ASSERT_EQ(*Sector(16), 2);
  Sector(16)[156 + kExtent] = 0;  // the root directory begins in the system area
  EXPECT_TRUE(Start().WaitForScreen(kStarted));
}

TEST_F(BootSectorVolume, NoPrimaryBeforeTheTerminator_IsReported) {
  MasterBytes();
  std::copy_n(Sector(19), 2048, Sector(18));
  std::copy_n(Sector(16), 2048, Sector(19));  // a primary descriptor after the terminator
  *Sector(16) = 3;                            // type 3: a volume partition descriptor
  EXPECT_TRUE(Start().WaitForScreen("This CD has no ISO 9660 volume"));
}

TEST_F(BootSectorVolume, DescriptorsWithoutTerminator_EndWhereTheyEnd) {
  MasterBytes();
  *Sector(16) = 3;
  Sector(18)[1] = 'X';
  Sector(19)[0] = 1;
  EXPECT_TRUE(Start().WaitForScreen("This CD has no ISO 9660 volume"));
}

TEST_F(BootSectorVolume, AttributesBeforeTheContent_ArePassedOver) {
  MasterBytes();
  for (char* record : {Record("", "I386"), Record("I386", "SETUPLDR.BIN")}) {
    record[kAttributeSectors] = 1;
    --record[kExtent];
    ASSERT_NE(record[kExtent], -1) << "the test does not borrow";
  }
  EXPECT_TRUE(Start().WaitForScreen(kStarted));
}

TEST_F(BootSectorVolume, NamesInSeveralLetterCases_ExactOnesAreTaken) {
  WriteFile(tree / "H386/SETUPLDR.BIN", "no program");
  WriteFile(tree / "J386/SETUPLDR.BIN", "no program");
  WriteFile(tree / "I386/SETUPLDR.BIM", "no program");
  WriteFile(tree / "I386/SETUPLDR.BIO", "no program");
  MasterBytes();
  Record("", "H386")[kName] = 'i';
  Record("", "J386")[kName] = 'i';
  Record("I386", "SETUPLDR.BIM")[kName + 11] = 'n';
  Record("I386", "SETUPLDR.BIO")[kName + 11] = 'n';
  EXPECT_TRUE(Start().WaitForScreen(kStarted));
}

TEST_F(BootSectorVolume, NamesInSeveralLetterCasesWithoutTheExactOne_FirstIsTaken) {
  WriteFile(tree / "I386/SETUPLDR.BIO", "no program");
  WriteFile(tree / "J386/SETUPLDR.BIN", "no program");
  MasterBytes();
  Record("I386", "SETUPLDR.BIN")[kName] = 's';
  char* other = Record("I386", "SETUPLDR.BIO");
  other[kName] = 's';
  other[kName + 11] = 'N';
  Record("", "I386")[kName] = 'i';
  Record("", "J386")[kName] = 'i';
  EXPECT_TRUE(Start().WaitForScreen(kStarted));
}

TEST_F(BootSectorVolume, FileBesideTheFolder_IsPassedOver) {
  WriteFile(tree / "H386", "no folder");
  WriteFile(tree / "I386/SETUPLDR.BIM/FILE", "no program");
  MasterBytes();
  Record("", "H386")[kName] = 'I';
  Record("I386", "SETUPLDR.BIM")[kName + 11] = 'N';
  EXPECT_TRUE(Start().WaitForScreen(kStarted));
}

TEST_F(BootSectorVolume, AssociatedFileOfTheSameName_IsNotTaken) {
  WriteFile(tree / "I386/SETUPLDR.BIM", "no program");
  MasterBytes();
  char* record = Record("I386", "SETUPLDR.BIM");
  record[kName + 11] = 'N';
  record[kFlags] = 4;
  EXPECT_TRUE(Start().WaitForScreen(kStarted));
}

TEST_F(BootSectorVolume, HiddenFile_IsTaken) {
  MasterBytes();
  Record("I386", "SETUPLDR.BIN")[kFlags] = 1;
  EXPECT_TRUE(Start().WaitForScreen(kStarted));
}

TEST_F(BootSectorVolume, FileInSeveralExtents_IsTooLarge) {
  MasterBytes();
  Record("I386", "SETUPLDR.BIN")[kFlags] = static_cast<char>(0x80);
  EXPECT_TRUE(Start().WaitForScreen("I386\\SETUPLDR.BIN is too large for the memory of this machine"));
}

TEST_F(BootSectorVolume, FileOfAlmost4Gb_IsTooLarge) {
  MasterBytes();
  std::fill_n(&Record("I386", "SETUPLDR.BIN")[kSize], 4, '\xFF');
  EXPECT_TRUE(Start().WaitForScreen("I386\\SETUPLDR.BIN is too large for the memory of this machine"));
}

TEST_F(BootSectorVolume, DamagedRecords_EndTheSearch) {
  MasterBytes();
  char* record = Record("", "I386");
  // Fills the rest of the sector with bytes that look like records of the greatest length.
  std::fill_n(record, 2048 - (record - Sector(Entry("").extent)), '\xFF');
  for (const int length : {1, 33, 255}) {
    *record = static_cast<char>(length);
    EXPECT_TRUE(Start().WaitForScreen("I386\\SETUPLDR.BIN was not found on this CD")) << length;
  }
}

}  // namespace
}  // namespace discwright::testing
