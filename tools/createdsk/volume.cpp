// Reads a FAT12 volume from its image and checks every number in it before it is used.
#include "tools/createdsk/volume.h"

#include <algorithm>
#include <cstring>

#include "base/byte_order.h"

namespace discwright::tools {
namespace {

// The longest path of DOS has 66 characters, so DOS cannot reach a deeper folder.
constexpr int kDeepestFolder = 32;

class VolumeReader {
 public:
  VolumeReader(std::span<const std::uint8_t> image, Volume& volume) : image_(image), volume_(volume) {}

  Result Read() {
    if (Result result = ReadFat(); !result.ok()) return result;
    AppendRecords(volume_.layout.RootOffset(), volume_.layout.root_entries, volume_.root);
    return ReadEntries(volume_.root, 0);
  }

 private:
  Result ReadFat() {
    const VolumeLayout& layout = volume_.layout;
    for (std::size_t copy = 0; copy < layout.fat_count; ++copy) {
      FatTable table(image_.subspan(layout.FatOffset(copy), layout.FatBytes()), layout.ClusterCount());
      if (copy == 0)
        volume_.fat = std::move(table);
      else if (table.entries() != volume_.fat.entries())
        return Result::Failure("is damaged: its FAT copies differ");
    }
    if ((volume_.fat.entries()[0] & 0xFF) != layout.media) {
      return Result::Failure("is not a FAT12 floppy: its FAT does not begin with its media byte");
    }
    return Result::Success();
  }

  void AppendRecords(std::size_t offset, std::size_t count, Folder& folder) {
    const std::size_t first = folder.records.size();
    folder.records.resize(first + count);
    const auto bytes = image_.subspan(offset, count * kRecordBytes);
    std::memcpy(&folder.records[first], bytes.data(), bytes.size());
  }

  // `depth` is the number of folders above `folder`; 0 for the root.
  Result ReadEntries(Folder& folder, int depth) {
    const auto end = std::ranges::find(folder.records, RecordKind::kEnd, KindOf);
    std::fill(end, folder.records.end(), DirectoryRecord{});

    const std::size_t first = &folder == &volume_.root ? 0 : 2;
    for (std::size_t index = first; index < folder.records.size(); ++index) {
      const RecordKind kind = KindOf(folder.records[index]);
      Result result;
      if (kind == RecordKind::kFile) result = ReadFile(folder, index);
      if (kind == RecordKind::kFolder) result = ReadFolder(folder, index, depth + 1);
      if (!result.ok()) return result;
    }
    return Result::Success();
  }

  Result ReadFile(Folder& folder, std::size_t index) {
    const DirectoryRecord& record = folder.records[index];
    const std::size_t size = base::LoadLe32(record.size);
    const Cluster first = base::LoadLe16(record.first_cluster);
    const std::string path = PathOf(folder, record.name);
    Chain& chain = folder.files[index];
    if (size == 0 && first == 0) return Result::Success();
    if (Result result = volume_.fat.ClaimChain(first, chain); !result.ok()) return Damaged(path, result.failure);
    const std::size_t cluster_bytes = volume_.layout.ClusterBytes();
    if (chain.size() != (size + cluster_bytes - 1) / cluster_bytes) {
      return Damaged(path, "its cluster chain does not have the length of the file");
    }
    return Result::Success();
  }

  Result ReadFolder(Folder& parent, std::size_t index, int depth) {
    const DirectoryRecord& record = parent.records[index];
    auto folder = std::make_unique<Folder>();
    folder->path = PathOf(parent, record.name);
    if (depth > kDeepestFolder) return Damaged(folder->path, "it lies too deep");
    Result result = volume_.fat.ClaimChain(base::LoadLe16(record.first_cluster), folder->chain);
    if (!result.ok()) return Damaged(folder->path, result.failure);
    for (const Cluster cluster : folder->chain) {
      const VolumeLayout& layout = volume_.layout;
      AppendRecords(layout.ClusterOffset(cluster), layout.ClusterBytes() / kRecordBytes, *folder);
    }
    if (!LeadsTo(folder->records[0], kDot, folder->chain) || !LeadsTo(folder->records[1], kDotDot, parent.chain)) {
      return Damaged(folder->path, "it does not begin with itself and its parent");
    }
    result = ReadEntries(*folder, depth);
    parent.folders[index] = std::move(folder);
    return result;
  }

  static bool LeadsTo(const DirectoryRecord& record, const ShortName& name, const Chain& chain) {
    const Cluster first = chain.empty() ? Cluster{0} : chain.front();
    return record.name == name && KindOf(record) == RecordKind::kFolder &&
           base::LoadLe16(record.first_cluster) == first;
  }

  static Result Damaged(const std::string& path, const std::string& cause) {
    return Result::Failure("is damaged at " + path + ": " + cause);
  }

  std::span<const std::uint8_t> image_;
  Volume& volume_;
};

}  // namespace

std::string PathOf(const Folder& folder, const ShortName& name) {
  return folder.path.empty() ? ToText(name) : folder.path + "\\" + ToText(name);
}

Result ReadVolume(std::span<const std::uint8_t> image, Volume& volume) {
  volume = Volume();
  if (Result result = ReadLayout(image, volume.layout); !result.ok()) return result;
  return VolumeReader(image, volume).Read();
}

}  // namespace discwright::tools
