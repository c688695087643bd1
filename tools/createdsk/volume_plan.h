// Decides, in the sizing pass, where the files of a profile go on a volume. Add the label and all files to a
// VolumePlan, then call CheckSpace. WriteVolume writes the planned files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/createdsk/profile.h"
#include "tools/createdsk/volume.h"
#include "tools/result.h"

namespace discwright::tools {

// A file that the writing pass has to store, and its place in the volume.
struct Placement {
  const ProfileFile* file = nullptr;
  std::int64_t size = 0;  // bytes
  Folder* folder = nullptr;
  std::size_t record = 0;  // index into the records and the key into the files of `folder`
};

// Adds records and folders to a volume in memory. Clusters are assigned later, by the writing pass.
class VolumePlan {
 public:
  // `volume` must outlive the plan.
  explicit VolumePlan(Volume& volume) : volume_(volume) {}

  // Adds a label entry to the root folder, or renames the one that is there.
  Result SetLabel(const ShortName& label);

  // Adds a file and the folders of its path, or replaces the file with the same path. `file` must outlive the plan.
  Result AddFile(const ProfileFile& file, std::int64_t size);

  // Fails with a sentence that names the first folder or file that does not fit, and the number of bytes that are
  // missing for it.
  Result CheckSpace() const;

  const std::vector<Placement>& placements() const { return placements_; }

 private:
  Result EnterFolder(const ShortName& name, Folder*& folder);
  Result AddRecord(Folder& folder, const DirectoryRecord& record, std::size_t& index) const;

  Volume& volume_;
  std::vector<Placement> placements_;
};

// Returns the number of clusters that `bytes` bytes of content take, or of records of a folder other than the root.
std::uint64_t ClustersFor(const VolumeLayout& layout, std::int64_t bytes);
std::size_t ClustersFor(const VolumeLayout& layout, const Folder& folder);

}  // namespace discwright::tools
