// Takes volume descriptors and folders of ISO 9660 apart, and reads extents. Every number of the CD is checked before
// it is used, because the CD may be damaged.
#include "boot/loader/iso9660.h"

#include <algorithm>

#include "boot/loader/text.h"

namespace discwright::loader {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint32_t kFirstDescriptor = 16;
constexpr std::uint32_t kMostDescriptors = 64;  // real CDs have three to five

enum DescriptorType : std::uint8_t { kPrimary = 1, kSupplementary = 2, kTerminator = 255 };
constexpr std::uint8_t kPrimaryVersion = 1;
constexpr std::uint8_t kEnhancedVersion = 2;  // of a supplementary descriptor

constexpr std::size_t kRecordHead = 33;  // bytes of a folder's record before the name
enum RecordFlag : std::uint8_t { kHidden = 0x01, kFolder = 0x02, kAssociated = 0x04, kMoreParts = 0x80 };

std::uint32_t Number16(Bytes bytes, std::size_t at) {
  return bytes[at] | static_cast<std::uint32_t>(bytes[at + 1]) << 8;
}
std::uint32_t Number32(Bytes bytes, std::size_t at) { return Number16(bytes, at) | Number16(bytes, at + 2) << 16; }

std::string_view TextAt(Bytes bytes, std::size_t at, std::size_t size) {
  return {reinterpret_cast<const char*>(bytes.data()) + at, size};
}

std::uint32_t SectorsFor(std::uint32_t bytes) {
  constexpr std::uint32_t kSector = kSectorSize;
  return bytes / kSector + (bytes % kSector != 0 ? 1 : 0);
}

struct Record {
  std::string_view name;
  std::uint8_t flags = 0;
  VolumeEntry entry;

  bool IsSelfOrParent() const { return name.size() == 1 && (name[0] == '\0' || name[0] == '\1'); }
};

// Takes apart the record at the start of `bytes`. Returns false when it contradicts itself or reaches past the end.
bool ParseRecord(Bytes bytes, Record& record) {
  if (bytes.size() < kRecordHead || bytes[0] > bytes.size()) return false;
  const std::size_t name_size = bytes[32];
  if (name_size == 0 || kRecordHead + name_size > bytes[0]) return false;
  const std::uint32_t extent = Number32(bytes, 2);
  const std::uint32_t attributes = bytes[1];  // sectors before the content
  record.name = TextAt(bytes, kRecordHead, name_size);
  record.flags = bytes[25];
  record.entry.start = extent <= UINT32_MAX - attributes ? extent + attributes : UINT32_MAX;
  record.entry.size = Number32(bytes, 10);
  record.entry.is_folder = (record.flags & kFolder) != 0;
  const bool is_interleaved = bytes[26] != 0 || bytes[27] != 0;
  record.entry.is_in_parts = (record.flags & kMoreParts) != 0 || is_interleaved;
  return true;
}

struct Descriptor {
  bool exists = false;
  std::uint32_t sector_count = 0;
  VolumeEntry root;
};

// Takes apart a primary or enhanced descriptor. Further descriptors of the same kind are copies of the first.
VolumeError ParseDescriptor(Bytes bytes, Descriptor& descriptor) {
  if (descriptor.exists) return VolumeError::kNone;
  if (Number16(bytes, 128) != kSectorSize) return VolumeError::kBlockSize;
  Record root;
  if (!ParseRecord(bytes.subspan(156, 34), root) || !root.entry.is_folder) return VolumeError::kBadVolume;
  descriptor = {true, Number32(bytes, 80), root.entry};
  return VolumeError::kNone;
}

// Reads the descriptors up to the one that ends them. `sector` is a buffer for one sector.
VolumeError ReadDescriptors(Sectors& sectors, std::span<std::uint8_t> sector, Descriptor& primary,
                            Descriptor& enhanced) {
  for (std::uint32_t number = 0; number < kMostDescriptors; ++number) {
    if (!sectors.Read(kFirstDescriptor + number, sector)) return VolumeError::kUnreadable;
    if (TextAt(sector, 1, 5) != "CD001") return number == 0 ? VolumeError::kNoVolume : VolumeError::kBadVolume;
    const std::uint8_t type = sector[0], version = sector[6];
    if (type == kTerminator) return VolumeError::kNone;
    VolumeError error = VolumeError::kNone;
    if (type == kPrimary && version == kPrimaryVersion) error = ParseDescriptor(sector, primary);
    if (type == kSupplementary && version == kEnhancedVersion) error = ParseDescriptor(sector, enhanced);
    if (error != VolumeError::kNone) return error;
  }
  return VolumeError::kBadVolume;
}

// Goes through the records of a folder, sector by sector, and shows them to a visitor.
struct FolderWalk {
  IsoVisitor& visitor;
  bool is_over = false;          // the visitor needs no more
  bool is_further_part = false;  // the next record continues the file of the last one
};

void ShowRecord(FolderWalk& walk, const Record& record) {
  const bool is_further_part = walk.is_further_part;
  walk.is_further_part = (record.flags & kMoreParts) != 0;
  if (is_further_part || record.IsSelfOrParent() || (record.flags & (kHidden | kAssociated)) != 0) return;
  walk.is_over = !walk.visitor.Visit(record.name, record.entry);
}

// `bytes` are one sector, or less at the end of the folder. A record of length 0 ends a sector.
VolumeError WalkSector(FolderWalk& walk, Bytes bytes) {
  while (!bytes.empty() && bytes[0] != 0 && !walk.is_over) {
    Record record;
    if (!ParseRecord(bytes, record)) return VolumeError::kBadFolder;
    ShowRecord(walk, record);
    bytes = bytes.subspan(bytes[0]);
  }
  return VolumeError::kNone;
}

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

struct NameParts {
  std::string_view stem;     // without version, and without a period at its end
  std::string_view version;  // the digits behind ";"; empty when there is none
};

NameParts PartsOf(std::string_view name) {
  std::size_t digits = name.size();
  while (digits > 0 && IsDigit(name[digits - 1])) --digits;
  NameParts parts{name, {}};
  if (digits < name.size() && digits > 1 && name[digits - 1] == ';')
    parts = {{name.data(), digits - 1}, {name.data() + digits, name.size() - digits}};
  if (!parts.stem.empty() && parts.stem.back() == '.') parts.stem.remove_suffix(1);
  return parts;
}

enum class Match : std::uint8_t { kNone, kAnyCase, kSameCase, kExact };

Match Compare(std::string_view wanted, std::string_view name) {
  if (wanted == name) return Match::kExact;
  const NameParts wanted_parts = PartsOf(wanted);
  const NameParts parts = PartsOf(name);
  const bool has_both_versions = !wanted_parts.version.empty() && !parts.version.empty();
  if (has_both_versions && wanted_parts.version != parts.version) return Match::kNone;
  if (wanted_parts.stem == parts.stem) return Match::kSameCase;
  return IsSameText(wanted_parts.stem, parts.stem) ? Match::kAnyCase : Match::kNone;
}

// Looks for the name that matches best. The first of several equal matches counts.
class NameSearch final : public IsoVisitor {
 public:
  NameSearch(std::string_view wanted, bool folders_only) : wanted_(wanted), folders_only_(folders_only) {}

  bool Visit(std::string_view name, const VolumeEntry& entry) override {
    const Match match = folders_only_ && !entry.is_folder ? Match::kNone : Compare(wanted_, name);
    if (match > best_) {
      best_ = match;
      found_ = entry;
    }
    return best_ != Match::kExact;
  }

  bool HasFound() const { return best_ != Match::kNone; }
  const VolumeEntry& found() const { return found_; }

 private:
  std::string_view wanted_;
  bool folders_only_;
  Match best_ = Match::kNone;
  VolumeEntry found_;
};

}  // namespace

IsoVolume::IsoVolume(Sectors& sectors, std::span<std::uint8_t> buffer)
    : sectors_(sectors), buffer_(buffer.first(buffer.size() / kSectorSize * kSectorSize)) {}

VolumeError IsoVolume::Open() {
  sector_count_ = 0;
  root_ = {};
  if (buffer_.empty()) return VolumeError::kNotEnoughRoom;
  Descriptor primary, enhanced;
  VolumeError error = ReadDescriptors(sectors_, buffer_.first(kSectorSize), primary, enhanced);
  if (error != VolumeError::kNone) return error;
  if (!primary.exists) return VolumeError::kBadVolume;
  const Descriptor& chosen = enhanced.exists ? enhanced : primary;
  sector_count_ = chosen.sector_count;
  error = CheckExtent(chosen.root);
  if (error == VolumeError::kNone) root_ = chosen.root;
  return error;
}

VolumeError IsoVolume::CheckExtent(const VolumeEntry& entry) const {
  if (entry.is_in_parts) return VolumeError::kInParts;
  if (entry.size == 0) return VolumeError::kNone;
  const bool is_inside = entry.start < sector_count_ && SectorsFor(entry.size) <= sector_count_ - entry.start;
  return is_inside ? VolumeError::kNone : VolumeError::kOutside;
}

VolumeError IsoVolume::Find(std::string_view path, VolumeEntry& found) {
  VolumeEntry here = root_;
  for (;;) {
    const std::string_view name = TakeName(path);
    if (name.empty()) break;
    NameSearch search(name, !path.empty());  // what stands before a separator is a folder
    if (const VolumeError error = List(here, search); error != VolumeError::kNone) return error;
    if (!search.HasFound()) return VolumeError::kNotFound;
    here = search.found();
  }
  found = here;
  return VolumeError::kNone;
}

VolumeError IsoVolume::Read(const VolumeEntry& file, std::uint32_t offset, std::span<std::uint8_t> to) {
  if (file.is_folder) return VolumeError::kNotAFile;
  if (const VolumeError error = CheckExtent(file); error != VolumeError::kNone) return error;
  if (offset > file.size || to.size() > file.size - offset) return VolumeError::kPastTheEnd;
  const bool is_read = ReadBytes(sectors_, file.start, offset, to, buffer_.first(kSectorSize));
  return is_read ? VolumeError::kNone : VolumeError::kUnreadable;
}

VolumeError IsoVolume::List(const VolumeEntry& folder, IsoVisitor& visitor) {
  if (!folder.is_folder) return VolumeError::kNotAFolder;
  if (const VolumeError error = CheckExtent(folder); error != VolumeError::kNone) return error;
  FolderWalk walk{visitor};
  std::uint32_t sector = folder.start;
  std::uint32_t left = folder.size;  // bytes
  while (left > 0) {
    const auto size = static_cast<std::uint32_t>(std::min<std::size_t>(left, buffer_.size()));
    if (!sectors_.Read(sector, buffer_.first(SectorsFor(size) * kSectorSize))) return VolumeError::kUnreadable;
    for (Bytes bytes = buffer_.first(size); !bytes.empty();) {
      const std::size_t part = std::min(bytes.size(), kSectorSize);
      if (const VolumeError error = WalkSector(walk, bytes.first(part)); error != VolumeError::kNone) return error;
      if (walk.is_over) return VolumeError::kNone;
      bytes = bytes.subspan(part);
    }
    sector += SectorsFor(size);
    left -= size;
  }
  return VolumeError::kNone;
}

}  // namespace discwright::loader
