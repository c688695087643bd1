// A small disk in memory, mounted on a folder.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace discwright::testing {

// Unmounted at the end. Mounting needs rights: ask whether it worked.
class SmallDisk {
 public:
  SmallDisk(std::filesystem::path folder, std::uintmax_t bytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  bool IsMounted() const { return error_ == 0; }
  std::string Reason() const;  // why it is not mounted

  bool MakeReadOnly() const;  // true when it worked

  // Leaves at most `bytes` free.
  void FillUpTo(std::uintmax_t bytes) const;

 private:
  std::filesystem::path folder_;
  int error_ = 0;
};

}  // namespace discwright::testing
