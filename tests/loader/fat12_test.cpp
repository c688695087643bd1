// Tests of the loader's reader of floppies with volumes that are made byte by byte, and with damaged ones.
#include "boot/loader/fat12.h"

#include <gtest/gtest.h>

#include "tests/host/temp_folder.h"
#include "tests/loader/hand_made_floppy.h"

namespace discwright::testing {
namespace {

using loader::VolumeEntry;
using loader::VolumeError;

std::string Say(VolumeError error) { return OpenedFloppy::Say(error); }

const std::string kContent = host::testing::BytesOfSize(1300);

// Makes a floppy with FILE.TXT of 1,300 bytes in the clusters 5, 6 and 9.
HandMadeFloppy WithFile() {
  HandMadeFloppy floppy;
  floppy.AddToRoot("FILE    TXT", HandMadeFloppy::kFile, 5, 1300);
  floppy.SetChain({5, 6, 9, HandMadeFloppy::kEnd});
  floppy.PutCluster(5, kContent.substr(0, 1024));
  floppy.PutCluster(9, kContent.substr(1024));
  return floppy;
}

VolumeError OpenError(const HandMadeFloppy& floppy) { return OpenedFloppy(floppy.bytes).opened; }

TEST(FatOpen, FloppyWithAFile_ReadsItInAnyLetterCase) {
  OpenedFloppy floppy(WithFile().bytes);
  ASSERT_EQ(floppy.opened, VolumeError::kNone);
  for (const char* path : {"FILE.TXT", "file.txt", "\\File.tXt", "//FILE.TXT"}) EXPECT_EQ(floppy.Read(path), kContent);
}

TEST(FatOpen, WhatIsNoFat12_IsRefused) {
  EXPECT_EQ(OpenedFloppy(std::string(1024, '\0')).opened, VolumeError::kNoVolume);
  EXPECT_EQ(OpenedFloppy("").opened, VolumeError::kUnreadable);
  struct Change {
    std::size_t at;
    std::uint32_t value;
    VolumeError error;
  };
  constexpr VolumeError kNoVolume = VolumeError::kNoVolume, kBadVolume = VolumeError::kBadVolume;
  for (const auto& [at, value, error] : {Change{11, 1024, VolumeError::kBlockSize},
                                         {11, 0, VolumeError::kBlockSize},
                                         {14, 0, kNoVolume},
                                         {14, 2849, kBadVolume},
                                         {14, 2848, kBadVolume},
                                         {17, 0, kNoVolume},
                                         {17, 65535, kBadVolume},
                                         {19, 33, kBadVolume},
                                         {19, 0, kBadVolume},
                                         {22, 0, kNoVolume},
                                         {22, 1500, kBadVolume},
                                         {22, 8, kBadVolume}}) {
    HandMadeFloppy floppy;
    floppy.Put16(at, value);
    EXPECT_EQ(OpenError(floppy), error) << at << " " << value;
  }
  for (const auto& [at, value, error] :
       {Change{13, 0, kNoVolume}, {13, 3, kNoVolume}, {16, 0, kNoVolume}, {21, 0xEF, kNoVolume}}) {
    HandMadeFloppy floppy;
    floppy.bytes[at] = static_cast<char>(value);
    EXPECT_EQ(OpenError(floppy), error) << at << " " << value;
  }
}

TEST(FatOpen, NumberOfClusters_DecidesAboutTheKind) {
  HandMadeFloppy floppy;
  floppy.Put16(22, 12);  // sectors of a table
  floppy.Put16(19, 1 + 24 + 14 + 4084);
  EXPECT_EQ(OpenError(floppy), VolumeError::kNone);
  floppy.Put16(19, 1 + 24 + 14 + 4085);
  EXPECT_EQ(OpenError(floppy), VolumeError::kNoVolume);
  floppy.Put16(19, 0);
  floppy.Put16(32, 1 + 24 + 14 + 4084);  // the field for large volumes
  EXPECT_EQ(OpenError(floppy), VolumeError::kNone);
}

TEST(FatOpen, TableThatIsTooShortForTheClusters_IsRefused) {
  HandMadeFloppy floppy;  // its table has room for 3,072 entries, of which two stand for no cluster
  floppy.Put16(19, 33 + 3070);
  EXPECT_EQ(OpenError(floppy), VolumeError::kNone);
  floppy.Put16(19, 33 + 3071);
  EXPECT_EQ(OpenError(floppy), VolumeError::kBadVolume);
}

TEST(FatOpen, FirstTableUnreadable_TheSecondIsUsed) {
  HandMadeFloppy made = WithFile();
  made.Put(10 * HandMadeFloppy::kSector, made.bytes.substr(HandMadeFloppy::kTable, 9 * HandMadeFloppy::kSector));
  OpenedFloppy floppy(made.bytes);
  floppy.sectors.bad_sector = 3;
  EXPECT_EQ(floppy.volume.Open(), VolumeError::kNone);
  EXPECT_EQ(floppy.Read("file.txt"), kContent);
  floppy.sectors.bad_sector = 0;
  EXPECT_EQ(floppy.volume.Open(), VolumeError::kUnreadable);
}

TEST(FatOpen, SmallBuffer_IsRefused) {
  ImageSectors sectors(WithFile().bytes, 512);
  std::vector<std::uint8_t> buffer(loader::FatVolume::kLeastBuffer - 1);
  EXPECT_EQ(loader::FatVolume(sectors, buffer).Open(), VolumeError::kNotEnoughRoom);
}

TEST(FatFind, LabelsLongNamesAndDeletedEntries_DoNotExist) {
  HandMadeFloppy made;
  made.AddToRoot("GONE    TXT", HandMadeFloppy::kLabel, 0, 0);
  made.AddToRoot("GONE    TXT", HandMadeFloppy::kLongName, 0, 0);
  made.AddToRoot("\xE5ONE    TXT", HandMadeFloppy::kFile, 0, 0);
  made.AddToRoot("\x05NE     TXT", HandMadeFloppy::kFile, 0, 0);
  made.AddToRoot("HERE    TXT", 0x07, 0, 0);  // read-only, hidden, system
  made.AddToRoot(std::string(11, '\0'), 0, 0, 0);
  made.AddToRoot("BEHIND     ", HandMadeFloppy::kFile, 0, 0);
  OpenedFloppy floppy(made.bytes);
  EXPECT_EQ(floppy.Read("here.txt"), "");
  EXPECT_EQ(floppy.Read("\xE5ne.txt"), "");
  for (const char* path :
       {"gone.txt", "\xE5one.txt", "\x05ne.txt", "behind", "other", "gone/x", "here.txt/", "here.txt/x"}) {
    EXPECT_EQ(floppy.Read(path), Say(VolumeError::kNotFound)) << path;
  }
}

TEST(FatFind, NamesThatAreNoShortNames_AreNotFound) {
  HandMadeFloppy made;
  made.AddToRoot("LOADER  BIN", HandMadeFloppy::kFile, 0, 0);
  made.AddToRoot("12345678123", HandMadeFloppy::kFile, 0, 0);
  made.AddToRoot("NODOT      ", HandMadeFloppy::kFile, 0, 0);
  OpenedFloppy floppy(made.bytes);
  for (const char* path : {"loader.bin", "12345678.123", "nodot", "nodot."}) EXPECT_EQ(floppy.Read(path), "") << path;
  for (const char* path : {"loader.bi", "loader", "loader.bin1", "123456789.123", "12345678.1234", "12345678123", ".",
                           "..", ".bin", "loader..bin"}) {
    EXPECT_EQ(floppy.Read(path), Say(VolumeError::kNotFound)) << path;
  }
}

TEST(FatFind, FullRoot_IsSearchedToItsEndAndNotFarther) {
  HandMadeFloppy made;
  for (int i = 0; i < 223; ++i) made.AddToRoot("FILL       ", HandMadeFloppy::kFile, 0, 0);
  made.AddToRoot("LAST       ", HandMadeFloppy::kFile, 0, 0);
  made.AddToRoot("BEYOND     ", HandMadeFloppy::kFile, 0, 0);  // in the first cluster
  for (const std::size_t more : {0, 1, 4, 40}) {
    OpenedFloppy floppy(made.bytes, more);
    EXPECT_EQ(floppy.Read("last"), "") << more;
    EXPECT_EQ(floppy.Read("beyond"), Say(VolumeError::kNotFound)) << more;
  }
}

TEST(FatFind, FolderInPieces_IsFollowed) {
  HandMadeFloppy made;
  made.AddToRoot("BOOT       ", HandMadeFloppy::kFolder, 7, 0);
  made.SetChain({7, 4, HandMadeFloppy::kEnd});
  std::string full;
  for (int i = 0; i < 16; ++i) full += HandMadeFloppy::Entry("FILL       ", HandMadeFloppy::kFile, 0, 0);
  made.PutCluster(7, full);
  made.PutCluster(4, HandMadeFloppy::Entry("DEEPER     ", HandMadeFloppy::kFolder, 3, 0));
  made.SetNext(3, HandMadeFloppy::kEnd);
  made.PutCluster(3, HandMadeFloppy::Entry("A       B  ", HandMadeFloppy::kFile, 11, 3));
  made.SetNext(11, 0xFF8);
  made.PutCluster(11, "abc");
  OpenedFloppy floppy(made.bytes);
  EXPECT_EQ(floppy.Read("boot\\deeper/a.b"), "abc");
  EXPECT_EQ(floppy.Read("boot/fill/a.b"), Say(VolumeError::kNotFound));
  EXPECT_EQ(floppy.Read("boot/deeper"), Say(VolumeError::kNotAFile));
}

TEST(FatFind, DamagedFolder_IsAnError) {
  for (const std::uint32_t next : {0u, 1u, 7u, 0xFF7u, 0xB20u, 0xFF0u}) {
    HandMadeFloppy made;
    made.AddToRoot("BOOT       ", HandMadeFloppy::kFolder, 7, 0);
    made.SetNext(7, next);
    EXPECT_EQ(OpenedFloppy(made.bytes).Read("boot/x"), Say(VolumeError::kBadFolder)) << next;
  }
  for (const std::uint32_t first : {0u, 1u, 2849u, 0xFFFFu}) {
    HandMadeFloppy made;
    made.AddToRoot("BOOT       ", HandMadeFloppy::kFolder, first, 0);
    EXPECT_EQ(OpenedFloppy(made.bytes).Read("boot/boot"), Say(VolumeError::kBadFolder)) << first;
  }
}

TEST(FatRead, EveryPart_IsRead) {
  OpenedFloppy floppy(WithFile().bytes);
  VolumeEntry file;
  ASSERT_EQ(floppy.volume.Find("file.txt", file), VolumeError::kNone);
  for (const std::uint32_t offset : {0u, 1u, 511u, 512u, 513u, 1023u, 1024u, 1100u, 1299u, 1300u}) {
    for (const std::size_t size : {0u, 1u, 2u, 511u, 512u, 513u, 1024u, 1025u, 1300u}) {
      const std::string expected =
          offset + size <= kContent.size() ? kContent.substr(offset, size) : Say(VolumeError::kPastTheEnd);
      EXPECT_EQ(floppy.ReadPart(file, offset, size), expected) << offset << " " << size;
    }
  }
}

TEST(FatRead, ClustersThatFollowOneAnother_AreOneRead) {
  HandMadeFloppy made;
  made.AddToRoot("LARGE      ", HandMadeFloppy::kFile, 2, 90 * 512);
  for (std::uint32_t cluster = 2; cluster < 101; ++cluster) made.SetNext(cluster, cluster + 1);
  made.SetNext(101, HandMadeFloppy::kEnd);
  made.SetChain({49, 60, 61});  // leaves out ten
  OpenedFloppy floppy(made.bytes);
  VolumeEntry file;
  ASSERT_EQ(floppy.volume.Find("large", file), VolumeError::kNone);
  floppy.sectors.reads = 0;
  floppy.ReadPart(file, 0, 90 * 512);
  EXPECT_EQ(floppy.sectors.reads, 2);
}

TEST(FatRead, DamagedChain_IsAnError) {
  // The table has wrong values first for the last cluster of the file, and then for its first cluster.
  for (const std::uint32_t next : {0u, 1u, 5u, 6u, 9u, 0xFF7u, 0xFF0u, 2849u}) {
    HandMadeFloppy made = WithFile();
    made.SetNext(9, next);
    EXPECT_EQ(OpenedFloppy(made.bytes).Read("file.txt"), Say(VolumeError::kBadChain)) << next;
  }
  for (const std::uint32_t next : {0u, 1u, 5u, 0xFF7u, 0xFFFu, 2849u}) {
    HandMadeFloppy made = WithFile();
    made.SetNext(5, next);
    EXPECT_EQ(OpenedFloppy(made.bytes).Read("file.txt"), Say(VolumeError::kBadChain)) << next;
  }
  for (const std::uint32_t first : {0u, 1u, 2849u, 0xFFFFu}) {
    HandMadeFloppy made;
    made.AddToRoot("FILE    TXT", HandMadeFloppy::kFile, first, 1);
    EXPECT_EQ(OpenedFloppy(made.bytes).Read("file.txt"), Say(VolumeError::kBadChain)) << first;
  }
  HandMadeFloppy huge;
  huge.AddToRoot("FILE    TXT", HandMadeFloppy::kFile, 5, 0xFFFFFFFF);
  huge.SetNext(5, HandMadeFloppy::kEnd);
  OpenedFloppy floppy(huge.bytes);
  VolumeEntry file;
  ASSERT_EQ(floppy.volume.Find("file.txt", file), VolumeError::kNone);
  EXPECT_EQ(floppy.ReadPart(file, 0xFFFFFF00, 16), Say(VolumeError::kBadChain));
}

TEST(FatRead, LastCluster_IsRead) {
  HandMadeFloppy made;
  made.AddToRoot("FILE    TXT", HandMadeFloppy::kFile, HandMadeFloppy::kLastCluster, 512);
  made.SetNext(HandMadeFloppy::kLastCluster, HandMadeFloppy::kEnd);
  made.PutCluster(HandMadeFloppy::kLastCluster, std::string(512, 'z'));
  EXPECT_EQ(OpenedFloppy(made.bytes).Read("file.txt"), std::string(512, 'z'));
}

TEST(FatRead, ClusterBehindTheLast_IsNoPartOfAChain) {
  HandMadeFloppy made = WithFile();
  made.SetChain({6, HandMadeFloppy::kLastCluster + 1, HandMadeFloppy::kEnd});
  EXPECT_EQ(OpenedFloppy(made.bytes).Read("file.txt"), Say(VolumeError::kBadChain));
}

TEST(FatRead, ChainThatIsLongerThanTheFile_IsRead) {
  HandMadeFloppy made = WithFile();
  made.SetChain({9, 20, HandMadeFloppy::kEnd});
  EXPECT_EQ(OpenedFloppy(made.bytes).Read("file.txt"), kContent);
}

TEST(FatRead, BadSector_IsAnErrorInEveryPlace) {
  for (const std::uint32_t sector : {19u, 36u, 37u, 40u}) {
    OpenedFloppy floppy(WithFile().bytes);
    floppy.sectors.bad_sector = sector;
    EXPECT_EQ(floppy.Read("file.txt"), Say(VolumeError::kUnreadable)) << sector;
  }
}

}  // namespace
}  // namespace discwright::testing
