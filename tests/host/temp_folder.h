// A folder of its own for each test of the host, removed with the test.
#pragma once

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "host/files.h"
#include "host/system.h"

namespace discwright::host::testing {

// Knows its content by the system's own means, not by the functions under test.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "host-test-XXXXXX";
    native_ = mkdtemp(pattern.data());
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(native_, ignored);
  }

  const std::string& native() const { return native_; }
  std::string Native(std::string_view name) const { return native_ + "/" + std::string(name); }
  // A path below this folder in the core's spelling; `name` may have separators.
  std::string Core(std::string_view name = "") const {
    return name.empty() ? PathFromNative(native_) : PathFromNative(native_) + "\\" + std::string(name);
  }

  void Write(std::string_view name, std::string_view content) const {
    std::filesystem::create_directories(std::filesystem::path(Native(name)).parent_path());
    std::ofstream(Native(name), std::ios::binary) << content;
  }
  std::string Read(std::string_view name) const {
    std::ifstream file(Native(name), std::ios::binary);
    if (!file) return "<missing>";
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void MakeFolder(std::string_view name) const { std::filesystem::create_directories(Native(name)); }
  void Link(std::string_view target, std::string_view name) const {
    std::filesystem::create_symlink(target, Native(name));
  }
  void Pipe(std::string_view name) const { ASSERT_EQ(mkfifo(Native(name).c_str(), 0600), 0); }
  unsigned Mode(std::string_view name) const {
    struct stat facts {};
    return stat(Native(name).c_str(), &facts) == 0 ? facts.st_mode & 07777u : 0;
  }
  void SetMode(std::string_view name, unsigned mode) const { ASSERT_EQ(chmod(Native(name).c_str(), mode), 0); }
  // Everything directly in the folder, sorted.
  std::vector<std::string> Names(std::string_view name = "") const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Native(name)))
      names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::string native_;
};

// A file system of one megabyte in a folder of the test. Mounting needs rights that not every machine gives.
class SmallDisk {
 public:
  SmallDisk() { mounted_ = mount("discwright-test", folder_.native().c_str(), "tmpfs", 0, "size=1m") == 0; }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  ~SmallDisk() {
    if (mounted_) umount2(folder_.native().c_str(), MNT_DETACH);
  }
  bool mounted() const { return mounted_; }
  const TempFolder& folder() const { return folder_; }

 private:
  TempFolder folder_;
  bool mounted_ = false;
};

inline std::string BytesOfSize(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 251);
  return bytes;
}

}  // namespace discwright::host::testing
