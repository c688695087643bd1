// A small disk in memory (tmpfs), mounted on a folder, for tests of full and read-only disks.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace discwright::testing {

inline constexpr std::uintmax_t kMegabyte = 1024 * 1024;

// The destructor unmounts it. Mounting may not be permitted, so ask IsMounted() first.
class SmallDisk {
 public:
  SmallDisk(std::filesystem::path folder, std::uintmax_t bytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  bool IsMounted() const { return error_ == 0; }
  std::string Reason() const;  // why mounting has failed

  bool MakeReadOnly() const;  // true on success

  // Fills the disk until at most `bytes` are free.
  void FillUpTo(std::uintmax_t bytes) const;

 private:
  std::filesystem::path folder_;
  int error_ = 0;
};

}  // namespace discwright::testing
