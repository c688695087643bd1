// The drive of the loader's tests: an image in memory, which counts what is read and fails where a test wants that.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

#include "boot/loader/sectors.h"

namespace discwright::testing {

class ImageSectors final : public loader::Sectors {
 public:
  explicit ImageSectors(std::string image, std::size_t sector_size = loader::kSectorSize)
      : image_(std::move(image)), sector_size_(sector_size) {}

  bool Read(std::uint32_t sector, std::span<std::uint8_t> to) override {
    EXPECT_EQ(to.size() % sector_size_, 0u);
    EXPECT_GT(to.size(), 0u);
    ++reads;
    const std::size_t count = to.size() / sector_size_;
    if (bad_sector && *bad_sector >= sector && *bad_sector - sector < count) return false;
    const std::size_t from = std::size_t{sector} * sector_size_;
    if (from > image_.size() || to.size() > image_.size() - from) return false;
    std::copy_n(image_.begin() + static_cast<std::ptrdiff_t>(from), to.size(), to.begin());
    return true;
  }

  std::optional<std::uint32_t> bad_sector;
  int reads = 0;

 private:
  std::string image_;
  std::size_t sector_size_;
};

}  // namespace discwright::testing
