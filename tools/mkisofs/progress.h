// What the program says while it works, in the words that a mastering monitor looks for.
#pragma once

#include <cstdint>
#include <ostream>

namespace discwright::tools::mkisofs {

class Progress {
 public:
  // `total`: bytes of the whole image, above 0.
  Progress(std::ostream& messages, std::uint64_t total) : messages_(messages), total_(total) {}

  void ShowBoot(std::uint32_t load_sectors);
  // A line each time that enough has been written since the last one. Never says 100 %: whoever reads the five
  // characters before the percent sign would see "00.00".
  void Show(std::uint64_t position);
  void ShowEnd(std::uint32_t sectors);

 private:
  std::ostream& messages_;
  std::uint64_t total_;
  std::uint64_t shown_ = 0;
};

}  // namespace discwright::tools::mkisofs
