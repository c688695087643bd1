// The sizing pass: where the files of a profile go on a volume, and whether they fit. Nothing is written.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/createdsk/profile.h"
#include "tools/createdsk/result.h"
#include "tools/createdsk/volume.h"

namespace discwright::tools {

// A file that the writing pass has to store: its record and chain in a folder of the volume.
struct Placement {
  const ProfileFile* file = nullptr;
  std::int64_t size = 0;  // bytes
  Folder* folder = nullptr;
  std::size_t record = 0;
};

// Plans on a volume, which it changes in memory: records and folders are added there, clusters are not yet given.
class VolumePlan {
 public:
  // `volume` must outlive the plan.
  explicit VolumePlan(Volume& volume) : volume_(volume) {}

  // Gives the root folder its label entry, or renames the one it has.
  Result SetLabel(const ShortName& label);

  // Adds a file with its folders, or takes the place of a file of the same name. `file` must outlive the plan.
  Result AddFile(const ProfileFile& file, std::int64_t size);

  // Fails, naming the first folder or file that does not fit and the bytes that are missing for it.
  Result CheckSpace() const;

  const std::vector<Placement>& placements() const { return placements_; }

 private:
  Result EnterFolder(const ShortName& name, Folder*& folder);
  Result AddRecord(Folder& folder, const DirectoryRecord& record, std::size_t& index) const;

  Volume& volume_;
  std::vector<Placement> placements_;
};

// The clusters that so many bytes, or the records of a folder other than the root, fill.
std::size_t ClustersFor(const VolumeLayout& layout, std::int64_t bytes);
std::size_t ClustersFor(const VolumeLayout& layout, const Folder& folder);

}  // namespace discwright::tools
