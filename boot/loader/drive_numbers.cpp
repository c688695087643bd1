// Computes the table of the new numbers.
#include "boot/loader/drive_numbers.h"

#include <algorithm>

namespace discwright::loader {

DriveNumbers UnchangedNumbers() {
  DriveNumbers numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = static_cast<std::uint8_t>(kFirstDiskNumber + i);
  return numbers;
}

DriveNumbers NumbersWithout(std::uint8_t own, std::size_t disks) {
  DriveNumbers numbers = UnchangedNumbers();
  const std::size_t end = std::min(disks, numbers.size());
  if (own < kFirstDiskNumber || own >= kFirstDiskNumber + end) return numbers;
  for (std::size_t i = own - kFirstDiskNumber; i + 1 < end; ++i) numbers[i] = numbers[i + 1];
  numbers[end - 1] = own;
  return numbers;
}

}  // namespace discwright::loader
