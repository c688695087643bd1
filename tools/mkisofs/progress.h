// Prints the progress lines of a run. The build's progress monitor looks for their words, so they must not change.
#pragma once

#include <cstdint>
#include <ostream>

namespace discwright::tools::mkisofs {

class Progress {
 public:
  // `total` is the size of the whole image in bytes, and above 0.
  Progress(std::ostream& messages, std::uint64_t total) : messages_(messages), total_(total) {}

  void ShowBoot(std::uint32_t load_sectors);
  // Prints a line for every 10 MB written. Never prints 100 %: the monitor reads the five characters before the percent
  // sign, which would be "00.00".
  void Show(std::uint64_t position);
  void ShowEnd(std::uint32_t sectors);

 private:
  std::ostream& messages_;
  std::uint64_t total_;
  std::uint64_t shown_ = 0;
};

}  // namespace discwright::tools::mkisofs
