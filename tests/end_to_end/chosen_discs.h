// One disc of each kind for a build that uses them all: Insert() makes the discs, Choices() are the arguments of the
// build, DifferenceToImage() checks the finished CD.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/end_to_end/setup_discs.h"

namespace discwright::testing {

class ChosenDiscs {
 public:
  // The discs are the folders xp, 98, erd, oobc and utilities below `folder`.
  explicit ChosenDiscs(std::filesystem::path folder) : folder_(std::move(folder)) {}

  void Insert(Shown names) const;
  // Keeps a fingerprint of the folder, which the build must not change.
  void Remember() const;

  const std::filesystem::path& folder() const { return folder_; }
  const std::map<std::string, std::string>& fingerprint() const { return fingerprint_; }

  // The arguments that choose all discs. `path` spells a path as the program expects it.
  std::vector<std::string> Choices(std::string (*path)(const std::filesystem::path&) = nullptr) const;

  // The missing, additional and different files of an image that the program in `program` made; empty when there are
  // none. Floppy images and the boot script are compared with those of the workspace.
  std::string DifferenceToImage(const std::filesystem::path& image, const std::filesystem::path& program) const;

 private:
  std::filesystem::path folder_;
  mutable Shown names_ = Shown::kUpperCase;
  mutable std::map<std::string, std::string> fingerprint_;
};

}  // namespace discwright::testing
