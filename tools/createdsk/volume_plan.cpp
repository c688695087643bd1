// Adds entries to the folders of a volume and counts the clusters that they need.
#include "tools/createdsk/volume_plan.h"

#include <algorithm>
#include <optional>

namespace discwright::tools {
namespace {

constexpr std::size_t kMostRecords = 65536;  // FAT specification 1.03: a folder has at most 2 MB of entries

std::optional<std::size_t> FindRecord(const Folder& folder, const ShortName& name) {
  for (std::size_t index = 0; index < folder.records.size(); ++index) {
    const bool has_content = folder.files.contains(index) || folder.folders.contains(index);
    if (has_content && folder.records[index].name == name) return index;
  }
  return {};
}

// `behind` is the size of the files that stand behind it in the profile and do not fit, either.
Result DoesNotFit(const std::string& what, std::uint64_t missing, std::uint64_t behind = 0) {
  return Result::Failure(what + " does not fit on the disk: " + std::to_string(missing) +
                         (missing == 1 ? " byte is" : " bytes are") + " missing" +
                         (behind == 0 ? "" : ", and " + std::to_string(behind) + " for the files behind it") +
                         ". Leave out or shorten files.");
}

// Subtracts the clusters that new and longer folders need from `left`, the number of free clusters.
Result CheckFolders(const VolumeLayout& layout, const Folder& parent, std::size_t& left) {
  for (const auto& [index, folder] : parent.folders) {
    const std::size_t needed = ClustersFor(layout, *folder) - folder->chain.size();
    if (needed > left) return DoesNotFit("The folder " + folder->path, (needed - left) * layout.ClusterBytes());
    left -= needed;
    if (Result result = CheckFolders(layout, *folder, left); !result.ok()) return result;
  }
  return Result::Success();
}

}  // namespace

Result VolumePlan::SetLabel(const ShortName& label) {
  auto& records = volume_.root.records;
  const auto old = std::ranges::find(records, RecordKind::kLabel, KindOf);
  if (old != records.end()) {
    old->name = label;
    return Result::Success();
  }
  std::size_t index = 0;
  return AddRecord(volume_.root, MakeRecord(label, kVolumeLabelAttribute), index);
}

Result VolumePlan::AddFile(const ProfileFile& file, std::int64_t size) {
  Folder* folder = &volume_.root;
  for (std::size_t depth = 0; depth + 1 < file.path.size(); ++depth) {
    if (Result result = EnterFolder(file.path[depth], folder); !result.ok()) return result;
  }
  std::optional<std::size_t> record = FindRecord(*folder, file.name());
  if (!record) {
    const std::uint8_t attributes = kArchiveAttribute | (file.is_system ? kSystemFileAttributes : 0);
    Result result = AddRecord(*folder, MakeRecord(file.name(), attributes), record.emplace());
    if (!result.ok()) return result;
    folder->files[*record] = {};
  } else if (!folder->files.contains(*record)) {
    return Result::Failure(file.DiskPath() + " is a folder on the disk; give the file another name.");
  }
  placements_.push_back({&file, size, folder, *record});
  return Result::Success();
}

Result VolumePlan::CheckSpace() const {
  const VolumeLayout& layout = volume_.layout;
  std::size_t left = volume_.fat.FreeClusters();
  for (const Placement& placement : placements_) {
    left += placement.folder->files.at(placement.record).size();
  }
  if (Result result = CheckFolders(layout, volume_.root, left); !result.ok()) return result;
  for (auto next = placements_.begin(); next != placements_.end(); ++next) {
    const Placement& placement = *next;
    const std::uint64_t needed = ClustersFor(layout, placement.size);
    if (needed > left) {
      const std::uint64_t missing = static_cast<std::uint64_t>(placement.size) - left * layout.ClusterBytes();
      std::uint64_t behind = 0;
      while (++next != placements_.end()) behind += static_cast<std::uint64_t>(next->size);
      return DoesNotFit(placement.file->DiskPath() + " (" + placement.file->source + ")", missing, behind);
    }
    left -= static_cast<std::size_t>(needed);
  }
  return Result::Success();
}

// Sets `folder` to its subfolder `name`. Adds the subfolder when it is missing.
Result VolumePlan::EnterFolder(const ShortName& name, Folder*& folder) {
  std::optional<std::size_t> record = FindRecord(*folder, name);
  if (!record) {
    Result result = AddRecord(*folder, MakeRecord(name, kFolderAttribute), record.emplace());
    if (!result.ok()) return result;
    auto added = std::make_unique<Folder>();
    added->path = PathOf(*folder, name);
    added->records.resize(volume_.layout.ClusterBytes() / kRecordBytes);
    added->records[0] = MakeRecord(kDot, kFolderAttribute);
    added->records[1] = MakeRecord(kDotDot, kFolderAttribute);
    folder->folders[*record] = std::move(added);
  } else if (!folder->folders.contains(*record)) {
    return Result::Failure(PathOf(*folder, name) + " is a file on the disk; give the folder another name.");
  }
  folder = folder->folders.at(*record).get();
  return Result::Success();
}

Result VolumePlan::AddRecord(Folder& folder, const DirectoryRecord& record, std::size_t& index) const {
  const auto is_unused = [](const DirectoryRecord& slot) {
    return KindOf(slot) == RecordKind::kEnd || KindOf(slot) == RecordKind::kDeleted;
  };
  index = static_cast<std::size_t>(std::ranges::find_if(folder.records, is_unused) - folder.records.begin());
  if (index == folder.records.size()) {
    if (&folder == &volume_.root) {
      return Result::Failure("The root folder of the disk is full with its " + std::to_string(index) +
                             " entries; put " + ToText(record.name) + " and other files into folders.");
    }
    if (index == kMostRecords) {
      return Result::Failure("The folder " + folder.path + " is full; put " + ToText(record.name) +
                             " into another folder.");
    }
    folder.records.resize(index + volume_.layout.ClusterBytes() / kRecordBytes);
  }
  folder.records[index] = record;
  return Result::Success();
}

std::uint64_t ClustersFor(const VolumeLayout& layout, std::int64_t bytes) {
  const std::uint64_t cluster_bytes = layout.ClusterBytes();
  return static_cast<std::uint64_t>(bytes) / cluster_bytes + (static_cast<std::uint64_t>(bytes) % cluster_bytes != 0);
}

std::size_t ClustersFor(const VolumeLayout& layout, const Folder& folder) {
  return folder.records.size() * kRecordBytes / layout.ClusterBytes();
}

}  // namespace discwright::tools
