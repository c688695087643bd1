// Assigns clusters to the planned files and writes contents, folders and FATs.
#include "tools/createdsk/volume_writer.h"

#include <algorithm>
#include <cstring>

#include "base/byte_order.h"

namespace discwright::tools {
namespace {

class VolumeWriter {
 public:
  VolumeWriter(Volume& volume, std::span<std::uint8_t> image) : volume_(volume), image_(image) {}

  // A shortened file keeps its first clusters. The boot sectors of some systems load their system file from the cluster
  // where it was when the disk was made.
  void ReleaseClusters(const Placement& placement) {
    Chain& chain = placement.folder->files.at(placement.record);
    volume_.fat.Resize(chain, std::min(chain.size(), ClustersOf(placement)));
  }

  void WriteFile(const Placement& placement, std::string_view content) {
    Chain& chain = placement.folder->files.at(placement.record);
    volume_.fat.Resize(chain, ClustersOf(placement));
    StoreInClusters(chain, content.data(), content.size());

    DirectoryRecord& record = placement.folder->records[placement.record];
    record.attributes |= kArchiveAttribute;
    base::StoreLe16(record.write_time, 0);
    base::StoreLe16(record.write_date, kRecordDate);
    SetContent(record, FirstOf(chain), static_cast<std::uint32_t>(content.size()));
  }

  void WriteFolders() {
    WriteSubfolders(volume_.root);
    std::memcpy(&image_[volume_.layout.RootOffset()], volume_.root.records.data(),
                volume_.root.records.size() * kRecordBytes);
  }

  void WriteFats() {
    for (std::size_t copy = 0; copy < volume_.layout.fat_count; ++copy) {
      volume_.fat.Store(image_.subspan(volume_.layout.FatOffset(copy), volume_.layout.FatBytes()));
    }
  }

 private:
  // The cast is safe, because CheckSpace has made sure that these clusters are on the disk.
  std::size_t ClustersOf(const Placement& placement) const {
    return static_cast<std::size_t>(ClustersFor(volume_.layout, placement.size));
  }

  static Cluster FirstOf(const Chain& chain) { return chain.empty() ? Cluster{0} : chain.front(); }

  // Fills the rest of the last cluster with zeros, so that no bytes of an older file stay there.
  void StoreInClusters(const Chain& chain, const void* bytes, std::size_t size) {
    const std::size_t cluster_bytes = volume_.layout.ClusterBytes();
    const auto* const source = static_cast<const std::uint8_t*>(bytes);
    std::size_t done = 0;
    for (const Cluster cluster : chain) {
      const auto target = image_.subspan(volume_.layout.ClusterOffset(cluster), cluster_bytes);
      const std::size_t piece = std::min(cluster_bytes, size - done);
      std::ranges::fill(std::copy_n(source + done, piece, target.begin()), target.end(), std::uint8_t{0});
      done += piece;
    }
  }

  void WriteSubfolders(Folder& parent) {
    for (auto& [index, folder] : parent.folders) {
      volume_.fat.Resize(folder->chain, ClustersFor(volume_.layout, *folder));
      SetContent(folder->records[0], folder->chain.front(), 0);
      SetContent(folder->records[1], FirstOf(parent.chain), 0);
      SetContent(parent.records[index], folder->chain.front(), 0);
      WriteSubfolders(*folder);
      StoreInClusters(folder->chain, folder->records.data(), folder->records.size() * kRecordBytes);
    }
  }

  Volume& volume_;
  std::span<std::uint8_t> image_;
};

}  // namespace

Result WriteVolume(Volume& volume, const VolumePlan& plan, const ContentReader& read_content,
                   std::span<std::uint8_t> image) {
  VolumeWriter writer(volume, image);
  for (const Placement& placement : plan.placements()) writer.ReleaseClusters(placement);
  for (const Placement& placement : plan.placements()) {
    std::string content;
    if (Result result = read_content(*placement.file, content); !result.ok()) return result;
    if (content.size() != static_cast<std::size_t>(placement.size)) {
      return Result::Failure(placement.file->source + " changed while it was read; try again.");
    }
    writer.WriteFile(placement, content);
  }
  writer.WriteFolders();
  writer.WriteFats();
  return Result::Success();
}

}  // namespace discwright::tools
