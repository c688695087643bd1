// Reads volume descriptors, path tables, directories and the boot catalogue, and compares what they say.
#include "tests/mkisofs/iso_reader.h"

#include <algorithm>
#include <deque>
#include <string_view>

#include "base/byte_order.h"

namespace discwright::testing {
namespace {

using Bytes = std::span<const std::uint8_t>;
constexpr std::uint64_t kSector = 2048;
constexpr std::size_t kRecordHead = 33;
constexpr std::size_t kMostProblems = 50;

std::uint16_t Le16(Bytes bytes, std::size_t at) { return base::LoadLe16(bytes.subspan(at).first<2>()); }
std::uint32_t Le32(Bytes bytes, std::size_t at) { return base::LoadLe32(bytes.subspan(at).first<4>()); }
std::uint16_t Be16(Bytes bytes, std::size_t at) { return base::LoadBe16(bytes.subspan(at).first<2>()); }
std::uint32_t Be32(Bytes bytes, std::size_t at) { return base::LoadBe32(bytes.subspan(at).first<4>()); }

std::string Text(Bytes bytes, std::size_t at, std::size_t size) {
  std::string text(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                   bytes.begin() + static_cast<std::ptrdiff_t>(at + size));
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

bool AllZero(Bytes bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte == 0; });
}

struct Extent {
  std::uint64_t start, sectors;
  std::string owner;
};

struct PathRecord {
  std::string name;
  std::uint32_t extent;
  std::uint16_t parent;
  bool operator==(const PathRecord&) const = default;
};

struct DirectoryRecord {
  std::string name;
  std::uint32_t extent, size;
  bool is_folder;
  std::array<std::uint8_t, 7> recorded;
};

struct OpenFolder {
  std::size_t entry;  // its index in IsoImage::entries
  std::uint32_t parent_extent, parent_size;
};

class Reader {
 public:
  explicit Reader(Bytes bytes) : bytes_(bytes) {}

  IsoImage Read() {
    Check(bytes_.size() % kSector == 0, "the image is not made of whole sectors");
    if (ReadDescriptors()) {
      ReadDirectories();
      ReadPathTables();
      CheckExtents();
    }
    return std::move(image_);
  }

 private:
  bool Check(bool right, const std::string& problem) {
    if (!right && image_.problems.size() < kMostProblems) image_.problems.push_back(problem);
    return right;
  }

  // The bytes from a sector on; empty, with a problem, when they reach past the end of the image.
  Bytes At(std::uint64_t sector, std::uint64_t size, const std::string& what) {
    const bool inside = sector * kSector <= bytes_.size() && size <= bytes_.size() - sector * kSector;
    Check(inside, what + " reaches past the end of the image");
    return inside ? bytes_.subspan(static_cast<std::size_t>(sector * kSector), static_cast<std::size_t>(size))
                  : Bytes();
  }

  std::uint32_t Both32(Bytes bytes, std::size_t at, const char* what) {
    Check(Le32(bytes, at) == Be32(bytes, at + 4), std::string(what) + ": the two byte orders differ");
    return Le32(bytes, at);
  }
  std::uint16_t Both16(Bytes bytes, std::size_t at, const char* what) {
    Check(Le16(bytes, at) == Be16(bytes, at + 2), std::string(what) + ": the two byte orders differ");
    return Le16(bytes, at);
  }

  bool ReadDescriptors() {
    Bytes primary, enhanced;
    bool ended = false;
    std::uint64_t sector = 16;
    for (; !ended; ++sector) {
      const Bytes descriptor = At(sector, kSector, "a volume descriptor");
      if (descriptor.empty()) return false;
      if (!Check(Text(descriptor, 1, 5) == "CD001", "a volume descriptor is not one")) return false;
      const int kind = descriptor[0] << 8 | descriptor[6];
      if (kind == 0x0101 && primary.empty()) {
        Check(sector == 16, "the primary descriptor is not in sector 16");
        primary = descriptor;
      } else if (kind == 0x0202 && enhanced.empty()) {
        enhanced = descriptor;
      } else if (kind == 0x0001 && !image_.boot) {
        Check(sector == 17, "the boot record is not in sector 17");
        ReadBoot(descriptor);
      } else if (kind == 0xFF01) {
        Check(AllZero(descriptor.subspan(7)), "the terminator is not empty");
        ended = true;
      } else {
        return Check(false, "an unknown or second volume descriptor");
      }
    }
    Own(0, sector, "descriptors");
    if (!Check(!primary.empty() && !enhanced.empty(), "a volume descriptor is missing")) return false;
    CompareDescriptors(primary, enhanced);
    return ReadPrimary(primary);
  }

  void CompareDescriptors(Bytes primary, Bytes enhanced) {
    for (std::size_t i = 0; i < kSector; ++i) {
      const bool may_differ = i == 0 || i == 6 || i == 881;  // type, version, version of the file structure
      if (!may_differ && !Check(primary[i] == enhanced[i], "the descriptors differ at byte " + std::to_string(i)))
        break;
    }
    Check(primary[881] == 1 && enhanced[881] == 2, "wrong version of the file structure");
    for (const auto& [at, size] : {std::pair{7, 1}, {72, 8}, {88, 32}, {882, 1}, {883, 512}, {1395, 653}})
      Check(AllZero(primary.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(size))),
            "bytes from " + std::to_string(at) + " are not zero");
  }

  bool ReadPrimary(Bytes d) {
    image_.system_id = Text(d, 8, 32);
    image_.volume_id = Text(d, 40, 32);
    image_.publisher = Text(d, 318, 128);
    image_.preparer = Text(d, 446, 128);
    image_.application_id = Text(d, 574, 128);
    std::copy_n(d.begin() + 813, 17, image_.created.begin());
    for (const unsigned date : {813u, 830u, 847u, 864u}) CheckVolumeTime(d.subspan(date, 17));
    image_.sectors = Both32(d, 80, "volume size");
    Check(image_.sectors == bytes_.size() / kSector, "the volume size is not the image's");
    Check(Both16(d, 120, "volume set size") == 1 && Both16(d, 124, "volume number") == 1, "not a single volume");
    Check(Both16(d, 128, "block size") == kSector, "wrong block size");
    path_table_size_ = Both32(d, 132, "path table size");
    image_.path_table_l = Le32(d, 140);
    image_.path_table_m = Be32(d, 148);
    Check(Le32(d, 144) == 0 && Be32(d, 152) == 0, "an optional path table");
    std::size_t at = 156;
    const std::optional<DirectoryRecord> root = ReadRecord(d.first(190), at);
    if (!root || !Check(root->is_folder && root->name == std::string(1, '\0'), "the root is not a folder"))
      return false;
    image_.entries.push_back({"", true, root->extent, root->size, root->recorded});
    return true;
  }

  void CheckVolumeTime(Bytes time) {
    Check(std::all_of(time.begin(), time.end() - 1, [](std::uint8_t c) { return c >= '0' && c <= '9'; }),
          "a date of the volume is not made of digits");
    Check(time.back() == 0, "a date of the volume is not in UTC");
  }

  void ReadBoot(Bytes record) {
    IsoBoot boot;
    std::string system(record.begin() + 7, record.begin() + 39);
    system.erase(system.find_last_not_of('\0') + 1);
    Check(system == "EL TORITO SPECIFICATION", "an unknown boot system");
    Check(AllZero(record.subspan(39, 32)) && AllZero(record.subspan(75)), "the boot record has unknown bytes");
    boot.catalogue = Le32(record, 71);
    const Bytes catalogue = At(boot.catalogue, kSector, "the boot catalogue");
    if (catalogue.empty()) return;
    Own(boot.catalogue, 1, "boot catalogue");
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < 32; i += 2) sum += Le16(catalogue, i);
    Check((sum & 0xFFFF) == 0, "the boot catalogue's checksum is wrong");
    Check(catalogue[0] == 1 && catalogue[1] == 0 && Le16(catalogue, 30) == 0xAA55, "the validation entry is wrong");
    Check(catalogue[32] == 0x88 && AllZero(catalogue.subspan(33, 5)), "not an entry that boots without emulation");
    Check(AllZero(catalogue.subspan(44)), "the boot catalogue has unknown entries");
    boot.id.assign(catalogue.begin() + 4, catalogue.begin() + 28);
    boot.id.erase(boot.id.find_last_not_of('\0') + 1);
    boot.load_sectors = Le16(catalogue, 38);
    boot.image = Le32(catalogue, 40);
    At(boot.image, 1, "the boot image");
    image_.boot = boot;
  }

  // Reads the directories level by level, which is the order of the path tables.
  void ReadDirectories() {
    const IsoEntry root = image_.entries.front();
    std::deque<OpenFolder> open = {{0, root.extent, root.size}};
    for (; !open.empty(); open.pop_front()) {
      const OpenFolder folder = open.front();
      const IsoEntry entry = image_.entries[folder.entry];
      path_records_.push_back({entry.path.substr(entry.path.rfind('/') + 1), entry.extent, 0});
      const Bytes bytes = At(entry.extent, entry.size, "folder " + entry.path);
      directory_bytes_ += bytes.size();
      if (!Check(directory_bytes_ <= bytes_.size(), "folders overlap or lead into a circle")) return;
      Check(entry.size > 0 && entry.size % kSector == 0, "folder " + entry.path + " is not made of whole sectors");
      Own(entry.extent, entry.size / kSector, "folder " + entry.path);
      ReadDirectory(bytes, folder, open);
    }
  }

  void ReadDirectory(Bytes bytes, const OpenFolder& folder, std::deque<OpenFolder>& open) {
    const IsoEntry self = image_.entries[folder.entry];
    std::size_t number = 0;
    std::string previous;
    for (std::size_t at = 0; at < bytes.size();) {
      if (bytes[at] == 0) {
        const std::size_t next = std::min(bytes.size(), static_cast<std::size_t>((at / kSector + 1) * kSector));
        Check(AllZero(bytes.subspan(at, next - at)), "folder " + self.path + ": bytes behind the last record");
        at = next;
        continue;
      }
      const std::optional<DirectoryRecord> record = ReadRecord(bytes, at);
      if (!record) return;
      if (number < 2) {
        CheckSelfOrParent(*record, number, self, folder);
      } else {
        Check(number == 2 || previous < record->name, "folder " + self.path + ": " + record->name + " is out of order");
        previous = record->name;
        AddEntry(*record, self, open);
      }
      ++number;
    }
    Check(number >= 2, "folder " + self.path + " does not begin with itself and its parent");
  }

  void CheckSelfOrParent(const DirectoryRecord& record, std::size_t number, const IsoEntry& self,
                         const OpenFolder& folder) {
    const bool is_self = number == 0;
    Check(record.name == std::string(1, is_self ? '\0' : '\1') && record.is_folder,
          "folder " + self.path + " does not begin with itself and its parent");
    Check(record.extent == (is_self ? self.extent : folder.parent_extent) &&
              record.size == (is_self ? self.size : folder.parent_size),
          "folder " + self.path + ": itself or its parent is elsewhere");
  }

  void AddEntry(const DirectoryRecord& record, const IsoEntry& folder, std::deque<OpenFolder>& open) {
    IsoEntry entry{folder.path.empty() ? record.name : folder.path + "/" + record.name, record.is_folder, record.extent,
                   record.size, record.recorded};
    const std::uint64_t sectors = (std::uint64_t{record.size} + kSector - 1) / kSector;
    Check(record.extent + sectors <= image_.sectors, entry.path + " reaches past the end of the volume");
    if (record.is_folder) {
      open.push_back({image_.entries.size(), folder.extent, folder.size});
    } else if (record.size > 0) {
      Own(record.extent, sectors, entry.path);
    }
    image_.entries.push_back(std::move(entry));
  }

  // Reads the record at `at` and moves `at` past it.
  std::optional<DirectoryRecord> ReadRecord(Bytes bytes, std::size_t& at) {
    const std::size_t length = bytes[at];
    const std::size_t left = std::min<std::size_t>(bytes.size() - at, kSector - at % kSector);
    if (!Check(length > kRecordHead && length <= left, "a record crosses its sector")) return std::nullopt;
    const Bytes r = bytes.subspan(at, length);
    const std::size_t name_length = r[32];
    if (!Check(name_length > 0 && length == kRecordHead + name_length + (name_length % 2 == 0 ? 1 : 0),
               "a record has the wrong length"))
      return std::nullopt;
    Check(name_length % 2 != 0 || r.back() == 0, "a record's last byte is not zero");
    Check(r[1] == 0 && (r[25] & ~2) == 0 && r[26] == 0 && r[27] == 0, "a record has unknown attributes");
    Check(Both16(r, 28, "volume number") == 1, "a record names another volume");
    Check(name_length <= 207, "a name is too long");
    const bool date = r[19] >= 1 && r[19] <= 12 && r[20] >= 1 && r[20] <= 31 && r[21] < 24 && r[22] < 60 && r[23] < 60;
    Check(date && r[24] == 0, "a record has a wrong date or is not in UTC");
    DirectoryRecord record{
        std::string(r.begin() + kRecordHead, r.begin() + static_cast<std::ptrdiff_t>(kRecordHead + name_length)),
        Both32(r, 2, "extent"),
        Both32(r, 10, "size"),
        (r[25] & 2) != 0,
        {}};
    std::copy_n(r.begin() + 18, 7, record.recorded.begin());
    at += length;
    return record;
  }

  void ReadPathTables() {
    const std::vector<PathRecord> little = ReadPathTable(image_.path_table_l, false);
    const std::vector<PathRecord> big = ReadPathTable(image_.path_table_m, true);
    Check(little == big, "the path tables differ");
    if (!Check(little.size() == path_records_.size(), "the path tables do not have as many folders as the tree"))
      return;
    for (std::size_t i = 0; i < little.size(); ++i) {
      const std::string name = i == 0 ? std::string(1, '\0') : path_records_[i].name;
      // ReadDirectories() has met the folders in the order that the standard defines for path tables.
      Check(little[i].name == name && little[i].extent == path_records_[i].extent,
            "path table record " + std::to_string(i + 1) + " is not the folder that it should be");
      CheckParent(little, i);
    }
  }

  void CheckParent(const std::vector<PathRecord>& table, std::size_t i) {
    const std::size_t parent = table[i].parent;
    const std::string which = "path table record " + std::to_string(i + 1);
    if (!Check(parent >= 1 && parent <= (i == 0 ? 1 : i), which + " stands before its parent")) return;
    // The second record of a directory holds the extent of its parent.
    const Bytes own = At(table[i].extent, kSector, which);
    if (own.size() < kSector) return;
    const std::size_t second = own[0];
    Check(second + 6 <= own.size() && Le32(own, second + 2) == table[parent - 1].extent, which + " has a wrong parent");
  }

  std::vector<PathRecord> ReadPathTable(std::uint32_t sector, bool big) {
    std::vector<PathRecord> records;
    const Bytes table = At(sector, path_table_size_, "a path table");
    Own(sector, (table.size() + kSector - 1) / kSector, "path table");
    for (std::size_t at = 0; at < table.size();) {
      const std::size_t name_length = table[at];
      const std::size_t length = 8 + name_length + name_length % 2;
      if (!Check(name_length > 0 && length <= table.size() - at, "a path table record has the wrong length")) break;
      const Bytes r = table.subspan(at, length);
      Check(r[1] == 0 && (name_length % 2 == 0 || r.back() == 0), "a path table record has unknown bytes");
      records.push_back({std::string(r.begin() + 8, r.begin() + static_cast<std::ptrdiff_t>(8 + name_length)),
                         big ? Be32(r, 2) : Le32(r, 2), big ? Be16(r, 6) : Le16(r, 6)});
      at += length;
    }
    return records;
  }

  void Own(std::uint64_t start, std::uint64_t sectors, const std::string& owner) {
    extents_.push_back({start, sectors, owner});
  }

  // No two extents may overlap. Hard links of one file share the whole extent.
  void CheckExtents() {
    std::sort(extents_.begin(), extents_.end(), [](const Extent& a, const Extent& b) {
      return a.start != b.start ? a.start < b.start : a.sectors < b.sectors;
    });
    for (std::size_t i = 1; i < extents_.size(); ++i) {
      const Extent& one = extents_[i - 1];
      const Extent& other = extents_[i];
      const bool same = one.start == other.start && one.sectors == other.sectors;
      Check(same || one.start + one.sectors <= other.start, one.owner + " and " + other.owner + " overlap");
    }
  }

  Bytes bytes_;
  IsoImage image_;
  std::uint32_t path_table_size_ = 0;
  std::uint64_t directory_bytes_ = 0;
  std::vector<PathRecord> path_records_;
  std::vector<Extent> extents_;
};

}  // namespace

const IsoEntry* IsoImage::Find(const std::string& path) const {
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const IsoEntry& e) { return e.path == path; });
  return found == entries.end() ? nullptr : &*found;
}

IsoImage ReadIso(std::span<const std::uint8_t> bytes) { return Reader(bytes).Read(); }

}  // namespace discwright::testing
