// Reads images that are made by hand: each error, and every rule about names and records.
#include "boot/loader/iso9660.h"

#include <array>

#include "tests/loader/hand_made_iso.h"
#include "tests/loader/iso_fixture.h"

namespace discwright::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Record(const std::string& name, std::uint32_t sector, std::uint32_t size = 1, int flags = 0) {
  return HandMadeIso::Record(name, sector, size, flags);
}

VolumeError OpenError(const HandMadeIso& iso, std::size_t buffer_sectors = 1) {
  OpenedIso opened(iso.bytes, buffer_sectors);
  return opened.volume.Open();
}

// An opened image whose root has these records.
class IsoWith : public OpenedIso {
 public:
  explicit IsoWith(const std::string& records) : IsoWith(HandMadeIso(), records) {}
  IsoWith(HandMadeIso iso, const std::string& records) : OpenedIso(WithRoot(std::move(iso), records)) {
    EXPECT_EQ(volume.Open(), VolumeError::kNone);
  }

  VolumeError ListRoot(EntryCollector& entries) {
    VolumeEntry root;
    EXPECT_EQ(volume.Find("", root), VolumeError::kNone);
    return volume.List(root, entries);
  }
  std::vector<std::string> RootNames() {
    EntryCollector entries;
    EXPECT_EQ(ListRoot(entries), VolumeError::kNone);
    return entries.Names();
  }

 private:
  static std::string WithRoot(HandMadeIso iso, const std::string& records) {
    iso.PutFolder(HandMadeIso::kRoot, records);
    return iso.bytes;
  }
};

TEST(IsoOpen, EmptyVolume_Opens) { EXPECT_EQ(OpenError(HandMadeIso()), VolumeError::kNone); }

TEST(IsoOpen, BufferBelowOneSector_HasNotEnoughRoom) {
  ImageSectors sectors(HandMadeIso().bytes);
  std::array<std::uint8_t, loader::kSectorSize - 1> buffer{};
  loader::IsoVolume volume(sectors, buffer);
  EXPECT_EQ(volume.Open(), VolumeError::kNotEnoughRoom);
  VolumeEntry entry;
  EXPECT_EQ(volume.Find("x", entry), VolumeError::kNotAFolder);
  EXPECT_EQ(sectors.reads, 0);
}

TEST(IsoOpen, UnreadableDescriptor_IsReported) {
  for (const std::uint32_t sector : {16u, 17u}) {
    OpenedIso iso(HandMadeIso().bytes);
    iso.sectors.bad_sector = sector;
    EXPECT_EQ(iso.volume.Open(), VolumeError::kUnreadable) << sector;
  }
}

TEST(IsoOpen, NoDescriptorInSector16_IsNoVolume) {
  HandMadeIso iso;
  iso.Put(16, 1, "CD002");
  EXPECT_EQ(OpenError(iso), VolumeError::kNoVolume);
}

TEST(IsoOpen, OtherSectorBeforeTheTerminator_IsABadVolume) {
  HandMadeIso iso;
  iso.Put(17, 1, "BEA01");
  EXPECT_EQ(OpenError(iso), VolumeError::kBadVolume);
}

TEST(IsoOpen, DescriptorsWithoutEnd_AreABadVolume) {
  HandMadeIso iso(3000);
  for (std::uint32_t sector = 17; sector < 3000; ++sector) iso.PutDescriptor(sector, 1, 1, HandMadeIso::kRoot);
  OpenedIso opened(iso.bytes);
  EXPECT_EQ(opened.volume.Open(), VolumeError::kBadVolume);
  EXPECT_LE(opened.sectors.reads, 64);
}

TEST(IsoOpen, NoPrimaryDescriptor_IsABadVolume) {
  HandMadeIso iso;
  iso.PutDescriptor(16, 2, 2, HandMadeIso::kRoot);
  EXPECT_EQ(OpenError(iso), VolumeError::kBadVolume);
  iso.PutDescriptor(16, 1, 2, HandMadeIso::kRoot);  // an unknown version
  EXPECT_EQ(OpenError(iso), VolumeError::kBadVolume);
}

TEST(IsoOpen, BlocksOfAnotherSize_AreRefused) {
  HandMadeIso iso;
  iso.Put(16, 128, HandMadeIso::Number(512, 2));
  EXPECT_EQ(OpenError(iso), VolumeError::kBlockSize);
}

TEST(IsoOpen, RootThatIsNoFolderOrNoRecord_IsABadVolume) {
  HandMadeIso iso;
  iso.Put(16, 156 + 25, std::string(1, '\0'));
  EXPECT_EQ(OpenError(iso), VolumeError::kBadVolume);
  for (const std::uint32_t length : {0, 33, 35}) {
    HandMadeIso other;
    other.Put(16, 156, HandMadeIso::Number(length, 1));
    EXPECT_EQ(OpenError(other), VolumeError::kBadVolume) << length;
  }
}

TEST(IsoOpen, RootOutsideOfTheVolume_IsRefused) {
  HandMadeIso iso;
  iso.PutDescriptor(16, 1, 1, 39, 2048);
  EXPECT_EQ(OpenError(iso), VolumeError::kNone);
  for (const auto& [sector, size] : {std::pair{39u, 2049u}, {40u, 1u}, {0xFFFFFFFFu, 2048u}, {20u, 0xFFFFFFFFu}}) {
    iso.PutDescriptor(16, 1, 1, sector, size);
    OpenedIso opened(iso.bytes);
    EXPECT_EQ(opened.volume.Open(), VolumeError::kOutside) << sector << " " << size;
    EXPECT_EQ(opened.Find("x"), Words(VolumeError::kNotAFolder));
  }
}

TEST(IsoOpen, EnhancedDescriptor_IsPreferredAndJolietIsNot) {
  HandMadeIso iso;
  iso.PutDescriptor(17, 2, 1, 30);
  iso.PutDescriptor(18, 2, 2, 31);
  iso.PutTerminator(19);
  iso.PutFolder(HandMadeIso::kRoot, Record("PRIMARY.;1", 32));
  iso.PutFolder(30, Record("joliet", 33));
  iso.PutFolder(31, Record("enhanced", 34));
  OpenedIso opened(iso.bytes);
  ASSERT_EQ(opened.volume.Open(), VolumeError::kNone);
  EXPECT_EQ(opened.Find("enhanced"), "34");
  EXPECT_EQ(opened.Find("primary"), Words(VolumeError::kNotFound));
  EXPECT_EQ(opened.Find("joliet"), Words(VolumeError::kNotFound));
}

TEST(IsoOpen, SecondPrimaryDescriptor_CountsAsACopy) {
  HandMadeIso iso;
  iso.PutDescriptor(17, 1, 1, 30);
  iso.PutTerminator(18);
  iso.PutFolder(HandMadeIso::kRoot, Record("a", 32));
  OpenedIso opened(iso.bytes);
  ASSERT_EQ(opened.volume.Open(), VolumeError::kNone);
  EXPECT_EQ(opened.Find("a"), "32");
}

TEST(IsoOpen, FailureAfterASuccess_ClosesTheVolume) {
  OpenedIso iso(HandMadeIso().bytes);
  ASSERT_EQ(iso.volume.Open(), VolumeError::kNone);
  iso.sectors.bad_sector = 16;
  ASSERT_EQ(iso.volume.Open(), VolumeError::kUnreadable);
  EXPECT_EQ(iso.Find("x"), Words(VolumeError::kNotAFolder));
}

TEST(IsoFind, PathsWithEitherSeparator_AreFollowed) {
  HandMadeIso iso;
  iso.PutFolder(30, Record("main.cds", 32));
  IsoWith opened(iso, Record("boot", 30, 2048, kFolderFlag));
  for (const char* path : {"boot/main.cds", "boot\\main.cds", "/boot//main.cds", "\\boot\\/main.cds"})
    EXPECT_EQ(opened.Find(path), "32") << path;
  for (const char* path : {"boot", "boot/", "/boot\\"}) EXPECT_EQ(opened.Find(path), "30") << path;
  for (const char* path : {"", "/", "\\\\"}) EXPECT_EQ(opened.Find(path), "20") << path;
}

TEST(IsoFind, MissingNames_AreNotFound) {
  IsoWith iso(Record("boot", 30, 2048, kFolderFlag) + Record("file", 32));
  for (const char* path : {"boo", "boott", "boot/x", "file/x", "file/", ".", "..", "boot/..", ";1"})
    EXPECT_EQ(iso.Find(path), Words(VolumeError::kNotFound)) << path;
  EXPECT_EQ(iso.Find(std::string_view("\0", 1)), Words(VolumeError::kNotFound));
  EXPECT_EQ(iso.Find("\1"), Words(VolumeError::kNotFound));
}

TEST(IsoFind, ExactCase_WinsWhereverItStands) {
  IsoWith iso(Record("NAME", 30) + Record("Name", 31) + Record("name", 32));
  EXPECT_EQ(iso.Find("name"), "32");
  EXPECT_EQ(iso.Find("Name"), "31");
  EXPECT_EQ(iso.Find("NAME"), "30");
  EXPECT_EQ(iso.Find("nAME"), "30");
}

TEST(IsoFind, VersionAndPeriod_MayBeThereOrNot) {
  IsoWith iso(Record("NOEXT.;1", 30) + Record("WITH.EXT;1", 31) + Record("bare", 32) + Record("dot.", 33));
  for (const char* path : {"NOEXT", "noext", "noext.", "noext;1", "NOEXT.;1"}) EXPECT_EQ(iso.Find(path), "30") << path;
  for (const char* path : {"WITH.EXT", "with.ext;1"}) EXPECT_EQ(iso.Find(path), "31") << path;
  for (const char* path : {"bare", "BARE;1", "bare."}) EXPECT_EQ(iso.Find(path), "32") << path;
  for (const char* path : {"dot", "dot.", "DOT.;1"}) EXPECT_EQ(iso.Find(path), "33") << path;
  for (const char* path : {"with.ext;2", "with.ext;", "with.ext..", "noext;x"})
    EXPECT_EQ(iso.Find(path), Words(VolumeError::kNotFound)) << path;
}

TEST(IsoFind, NamesOfOneLetterOrNone_HaveVersionsToo) {
  IsoWith iso(Record("A.;1", 30) + Record("z", 31) + Record(";1", 32));
  EXPECT_EQ(iso.Find("a"), "30");
  EXPECT_EQ(iso.Find("Z;1"), "31");
  EXPECT_EQ(iso.Find(";1"), "32");
  EXPECT_EQ(iso.Find("."), Words(VolumeError::kNotFound));
}

TEST(IsoFind, ExactName_EndsTheReading) {
  HandMadeIso image;
  image.Put(30, 0, Record("a", 35) + Record("b", 36) + Record("b", 37));
  image.Put(31, 0, "\1");  // a damaged record
  IsoWith iso(image, Record("folder", 30, 2 * 2048, kFolderFlag));
  EXPECT_EQ(iso.Find("folder/b"), "36");
  EXPECT_EQ(iso.Find("folder/B"), Words(VolumeError::kBadFolder));
}

TEST(IsoFind, SameCaseWithVersion_WinsOverAnotherCase) {
  IsoWith iso(Record("Name", 30) + Record("name;1", 31) + Record("name;2", 32));
  EXPECT_EQ(iso.Find("name"), "31");
  EXPECT_EQ(iso.Find("name;2"), "32");
}

TEST(IsoFind, LettersBeyondAscii_MatchAsTheyStandOnly) {
  IsoWith iso(Record("\xC3\xA4", 30) + Record("[", 31));
  EXPECT_EQ(iso.Find("\xC3\xA4"), "30");
  EXPECT_EQ(iso.Find("\xC3\x84"), Words(VolumeError::kNotFound));
  EXPECT_EQ(iso.Find("{"), Words(VolumeError::kNotFound));
}

TEST(IsoFind, FileBesideAFolderInAnotherCase_DoesNotBarTheWay) {
  HandMadeIso image;
  image.PutFolder(30, Record("x", 32));
  IsoWith iso(image, Record("BOOT", 31) + Record("boot", 30, 2048, kFolderFlag));
  EXPECT_EQ(iso.Find("BOOT/x"), "32");
  EXPECT_EQ(iso.Find("BOOT"), "31");
}

TEST(IsoFind, HiddenAndAssociatedFiles_DoNotExist) {
  IsoWith iso(Record("hidden", 30, 1, kHiddenFlag) + Record("both", 31, 1, kAssociatedFlag) + Record("both", 32));
  EXPECT_EQ(iso.Find("hidden"), Words(VolumeError::kNotFound));
  EXPECT_EQ(iso.Find("both"), "32");
  EXPECT_THAT(iso.RootNames(), ElementsAre("both"));
}

TEST(IsoFind, FolderThatContainsItself_IsFollowedAsOftenAsThePathSays) {
  HandMadeIso image;
  image.PutFolder(30, Record("loop", 30, 2048, kFolderFlag));
  IsoWith iso(image, Record("loop", 30, 2048, kFolderFlag));
  std::string path;
  for (int depth = 0; depth < 1000; ++depth) path += "loop/";
  EXPECT_EQ(iso.Find(path), "30");
}

TEST(IsoList, FolderOfSeveralSectors_IsReadToItsEnd) {
  for (const std::size_t buffer_sectors : {1, 2, 3, 16}) {
    HandMadeIso image;
    for (std::uint32_t sector = 30; sector < 35; ++sector)
      image.Put(sector, 0, Record("s" + std::to_string(sector), 1));
    image.PutDescriptor(16, 1, 1, 30, 5 * 2048);
    OpenedIso iso(image.bytes, buffer_sectors);
    ASSERT_EQ(iso.volume.Open(), VolumeError::kNone);
    VolumeEntry root;
    ASSERT_EQ(iso.volume.Find("", root), VolumeError::kNone);
    EntryCollector entries;
    EXPECT_EQ(iso.volume.List(root, entries), VolumeError::kNone);
    EXPECT_THAT(entries.Names(), ElementsAre("s30", "s31", "s32", "s33", "s34")) << buffer_sectors;
  }
}

TEST(IsoList, SizeWithinASector_EndsTheFolderThere) {
  const std::string first = Record("first", 30), second = Record("second", 31);
  HandMadeIso image;
  image.Put(30, 0, first + second);
  IsoWith iso(image, Record("folder", 30, static_cast<std::uint32_t>(first.size()), kFolderFlag) +
                         Record("cut", 30, static_cast<std::uint32_t>(first.size() + 1), kFolderFlag));
  EXPECT_EQ(iso.Find("folder/first"), "30");
  EXPECT_EQ(iso.Find("folder/second"), Words(VolumeError::kNotFound));
  EXPECT_EQ(iso.Find("cut/second"), Words(VolumeError::kBadFolder));
}

TEST(IsoList, VisitorThatHasEnough_EndsTheReading) {
  IsoWith iso(Record("a", 30) + Record("b", 30) + Record("c", 30));
  EntryCollector two(2);
  EXPECT_EQ(iso.ListRoot(two), VolumeError::kNone);
  EXPECT_THAT(two.Names(), ElementsAre("a", "b"));
  EntryCollector one(1);
  iso.sectors.reads = 0;
  EXPECT_EQ(iso.volume.List({.start = HandMadeIso::kRoot, .size = 10 * 2048, .is_folder = true}, one),
            VolumeError::kNone);
  EXPECT_EQ(iso.sectors.reads, 1);
}

TEST(IsoList, EmptyFolder_HasNoEntriesAndIsNotRead) {
  IsoWith iso(Record("empty", 0xFFFFFFFF, 0, kFolderFlag));
  const int before = iso.sectors.reads;
  EntryCollector entries;
  EXPECT_EQ(iso.volume.List({.start = 0xFFFFFFFF, .size = 0, .is_folder = true}, entries), VolumeError::kNone);
  EXPECT_THAT(entries.Names(), IsEmpty());
  EXPECT_EQ(iso.sectors.reads, before);
  EXPECT_EQ(iso.Find("empty/x"), Words(VolumeError::kNotFound));
}

TEST(IsoList, File_IsNotAFolder) {
  IsoWith iso("");
  EntryCollector entries;
  EXPECT_EQ(iso.volume.List({.start = 30, .size = 1}, entries), VolumeError::kNotAFolder);
}

TEST(IsoList, RecordThatContradictsItself_IsABadFolder) {
  const std::string good = Record("good", 30);
  std::string short_record = good, long_name = good, no_name = good;
  short_record[0] = 33;
  long_name[32] = 6;  // "good" and the filler are five bytes
  no_name[32] = 0;
  for (const std::string& bad : {short_record, long_name, no_name}) {
    IsoWith iso(bad);
    EntryCollector entries;
    EXPECT_EQ(iso.ListRoot(entries), VolumeError::kBadFolder);
    EXPECT_THAT(entries.Names(), IsEmpty());
    EXPECT_EQ(iso.Find("good"), Words(VolumeError::kBadFolder));
  }
}

TEST(IsoList, RecordWithoutRoomForItsHead_IsABadFolder) {
  HandMadeIso image;
  std::size_t at = 0;
  for (; at < 2048 - 20; at += 52) image.Put(30, at, Record(std::string(19, 'n'), 1));
  ASSERT_EQ(at, 2048u - 20);
  image.Put(30, at, "\x14");  // its 20 bytes end with the sector, and with the buffer
  OpenedIso iso(image.bytes, 1);
  ASSERT_EQ(iso.volume.Open(), VolumeError::kNone);
  EntryCollector entries;
  EXPECT_EQ(iso.volume.List({.start = 30, .size = 2048, .is_folder = true}, entries), VolumeError::kBadFolder);
  EXPECT_EQ(entries.entries.size(), 39u);
}

TEST(IsoList, RecordThatCrossesASector_IsABadFolder) {
  HandMadeIso image;
  image.Put(30, 0, Record(std::string(200, 'n'), 1));
  for (std::size_t at = 0; at + 234 <= 2048; at += 234) image.Put(30, at, Record(std::string(200, 'n'), 1));
  ASSERT_EQ(2048 % 234, 176);
  image.Put(30, 2048 - 176, Record(std::string(143, 'e'), 1));  // ends with the sector
  image.Put(31, 0, Record("next", 35));
  const std::string root = Record("folder", 30, 2 * 2048, kFolderFlag);
  EXPECT_EQ(IsoWith(image, root).Find("folder/next"), "35");
  image.Put(30, 2048 - 176, std::string(1, '\xB2'));  // two bytes more than the sector has
  EXPECT_EQ(IsoWith(image, root).Find("folder/next"), Words(VolumeError::kBadFolder));
  image.Put(30, 2048 - 176, std::string(176, '\0'));
  image.Put(30, 2046, "\x22");
  EXPECT_EQ(IsoWith(image, root).Find("folder/next"), "35");  // a zero ends the sector before its last bytes
}

TEST(IsoList, FolderOutsideOfTheVolume_IsRefusedUnread) {
  IsoWith iso(Record("far", 40, 2048, kFolderFlag) + Record("huge", 30, 0xFFFFF800, kFolderFlag) +
              Record("wrapped", 0xFFFFFFFF, 0xFFFFFFFF, kFolderFlag));
  for (const char* path : {"far/x", "huge/x", "wrapped/x"}) {
    const int before = iso.sectors.reads;
    EXPECT_EQ(iso.Find(path), Words(VolumeError::kOutside)) << path;
    EXPECT_EQ(iso.sectors.reads, before + 1) << path;  // that of the root
  }
}

TEST(IsoList, HugeFolderOfAHugeVolume_EndsWithTheImage) {
  HandMadeIso image;
  image.Put(16, 80, HandMadeIso::Number(0xFFFFFFFF, 4));
  IsoWith iso(image, Record("huge", 30, 0xFFFFFFFF, kFolderFlag));
  EXPECT_EQ(iso.Find("huge/x"), Words(VolumeError::kUnreadable));
  EXPECT_LT(iso.sectors.reads, 20);
}

TEST(IsoList, UnreadableFolder_IsReported) {
  IsoWith iso(Record("a", 30));
  iso.sectors.bad_sector = HandMadeIso::kRoot;
  EXPECT_EQ(iso.Find("a"), Words(VolumeError::kUnreadable));
}

TEST(IsoRead, Folder_IsNotAFile) {
  IsoWith iso(Record("folder", 30, 2048, kFolderFlag));
  EXPECT_EQ(iso.ReadPath("folder"), Words(VolumeError::kNotAFile));
  std::uint32_t size = 0;
  EXPECT_EQ(iso.volume.ReadFile("folder", {}, size), VolumeError::kNotAFile);
}

TEST(IsoRead, EmptyFile_IsNeverReadWhereverItStands) {
  IsoWith iso(Record("empty", 0xFFFFFFFF, 0));
  VolumeEntry file;
  ASSERT_EQ(iso.volume.Find("empty", file), VolumeError::kNone);
  const int before = iso.sectors.reads;
  EXPECT_EQ(iso.Read(file), "");
  EXPECT_EQ(iso.ReadPart(file, 0, 1), Words(VolumeError::kPastTheEnd));
  EXPECT_EQ(iso.sectors.reads, before);
}

TEST(IsoRead, FileOutsideOfTheVolume_IsRefusedUnread) {
  IsoWith iso(Record("last", 39, 2048) + Record("over", 39, 2049) + Record("far", 0xFFFFFFF0, 0x10001));
  EXPECT_EQ(iso.ReadPath("last"), std::string(2048, '\0'));
  for (const char* path : {"over", "far"}) EXPECT_EQ(iso.ReadPath(path), Words(VolumeError::kOutside)) << path;
  EXPECT_EQ(iso.ReadPart({.start = 30, .size = 0xFFFFFFFF}, 0, 1), Words(VolumeError::kOutside));
}

TEST(IsoRead, AttributesBeforeTheContent_AreSkipped) {
  HandMadeIso image;
  image.Put(32, 0, "content");
  std::string file = Record("file", 30, 7), wrapped = Record("wrapped", 0xFFFFFFFF, 7);
  file[1] = 2;
  wrapped[1] = 33;
  IsoWith iso(image, file + wrapped);
  EXPECT_EQ(iso.ReadPath("file"), "content");
  EXPECT_EQ(iso.ReadPath("wrapped"), Words(VolumeError::kOutside));
}

TEST(IsoRead, FileInParts_IsRefusedAndListedOnce) {
  std::string unit = Record("unit", 30, 4096), gap = Record("gap", 30, 4096);
  unit[26] = 1;
  gap[27] = 1;
  IsoWith iso(Record("large", 30, 2048, kMorePartsFlag) + Record("large", 32, 2048, kMorePartsFlag) +
              Record("large", 34, 5) + Record("next", 35, 1) + unit + gap);
  EXPECT_THAT(iso.RootNames(), ElementsAre("large", "next", "unit", "gap"));
  for (const char* path : {"large", "unit", "gap"}) EXPECT_EQ(iso.ReadPath(path), Words(VolumeError::kInParts)) << path;
  EXPECT_EQ(iso.ReadPath("next"), std::string(1, '\0'));
}

TEST(IsoRead, EmptyFirstPart_IsRefusedToo) {
  IsoWith iso(Record("large", 30, 0, kMorePartsFlag) + Record("large", 32, 5));
  EXPECT_EQ(iso.ReadPath("large"), Words(VolumeError::kInParts));
}

class IsoReadPieces : public ::testing::Test {
 protected:
  IsoReadPieces() {
    for (std::size_t i = 0; i < kSize; ++i) content[i] = static_cast<char>(i * 7 + i / 251);
    HandMadeIso image;
    image.Put(30, 0, content);
    iso.emplace(image, Record("file", 30, kSize));
    EXPECT_EQ(iso->volume.Find("file", file), VolumeError::kNone);
  }

  static constexpr std::uint32_t kSize = 4 * 2048 + 100;
  std::string content = std::string(kSize, '\0');
  std::optional<IsoWith> iso;
  VolumeEntry file;
};

TEST_F(IsoReadPieces, AnyOffsetAndSize_GiveThoseBytes) {
  const std::uint32_t edges[] = {0, 1, 100, 2047, 2048, 2049, 4095, 4096, 4097, 8191, 8192, 8193, kSize - 1, kSize};
  for (const std::uint32_t from : edges) {
    for (const std::uint32_t to : edges) {
      if (to < from) continue;
      EXPECT_TRUE(iso->ReadPart(file, from, to - from) == content.substr(from, to - from)) << from << " " << to;
    }
  }
}

TEST_F(IsoReadPieces, BytesBehindTheEnd_AreRefused) {
  const std::string_view refused = Words(VolumeError::kPastTheEnd);
  EXPECT_EQ(iso->ReadPart(file, kSize, 1), refused);
  EXPECT_EQ(iso->ReadPart(file, kSize + 1, 0), refused);
  EXPECT_EQ(iso->ReadPart(file, 0, kSize + 1), refused);
  EXPECT_EQ(iso->ReadPart(file, 0xFFFFFFFF, 2), refused);
}

TEST_F(IsoReadPieces, WholeSectors_AreReadAtOnce) {
  iso->sectors.reads = 0;
  iso->ReadPart(file, 2048, 3 * 2048);
  EXPECT_EQ(iso->sectors.reads, 1);
  iso->sectors.reads = 0;
  iso->ReadPart(file, 1, kSize - 1);
  EXPECT_EQ(iso->sectors.reads, 3);
  iso->sectors.reads = 0;
  iso->ReadPart(file, 1, 0);
  EXPECT_EQ(iso->sectors.reads, 0);
}

TEST_F(IsoReadPieces, UnreadableSector_IsReported) {
  for (const std::uint32_t sector : {30, 32, 34}) {
    iso->sectors.bad_sector = sector;
    EXPECT_EQ(iso->ReadPart(file, 1, kSize - 1), Words(VolumeError::kUnreadable)) << sector;
  }
}

TEST_F(IsoReadPieces, ReadFile_ReadsAllIfThereIsRoom) {
  std::vector<std::uint8_t> room(kSize + 1, '?');
  std::uint32_t size = 0;
  ASSERT_EQ(iso->volume.ReadFile("FILE", room, size), VolumeError::kNone);
  EXPECT_EQ(size, kSize);
  EXPECT_TRUE(std::equal(content.begin(), content.end(), room.begin(),
                         [](char one, std::uint8_t other) { return static_cast<std::uint8_t>(one) == other; }));
  EXPECT_EQ(room.back(), '?');
  room.resize(kSize);
  EXPECT_EQ(iso->volume.ReadFile("file", room, size), VolumeError::kNone);
  room.resize(kSize - 1);
  size = 0;
  EXPECT_EQ(iso->volume.ReadFile("file", room, size), VolumeError::kNotEnoughRoom);
  EXPECT_EQ(size, kSize);
  EXPECT_EQ(iso->volume.ReadFile("other", room, size), VolumeError::kNotFound);
}

}  // namespace
}  // namespace discwright::testing
