// One disc of each kind, chosen all at once, and what the finished CD must hold of them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/end_to_end/setup_discs.h"

namespace discwright::testing {

class ChosenDiscs {
 public:
  // The discs come to stand below `folder`: xp, 98, erd and oobc, and utilities beside them.
  explicit ChosenDiscs(std::filesystem::path folder) : folder_(std::move(folder)) {}

  void Insert(Shown names) const;
  // Takes what stands in the folder now for what must not change.
  void Remember() const;

  const std::filesystem::path& folder() const { return folder_; }
  const std::map<std::string, std::string>& fingerprint() const { return fingerprint_; }

  // The arguments that choose everything; `path` spells a path for the program that gets them.
  std::vector<std::string> Choices(std::string (*path)(const std::filesystem::path&) = nullptr) const;

  // What an image made by the program in `program` lacks, has too much or has wrongly; empty when all is right. Its
  // floppy images and its boot script are compared with those of the workspace.
  std::string DifferenceToImage(const std::filesystem::path& image, const std::filesystem::path& program) const;

 private:
  std::filesystem::path folder_;
  mutable Shown names_ = Shown::kUpperCase;
  mutable std::map<std::string, std::string> fingerprint_;
};

}  // namespace discwright::testing
