// A temporary folder for each test of the host: its own functions read and write the files, not those under test.
#pragma once

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/fsuid.h>
#include <sys/mount.h>
#include <sys/stat.h>
#endif

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "host/files.h"
#include "host/names.h"

namespace discwright::host::testing {

// A path of a test's as the system spells it: UTF-8 on Windows, any bytes elsewhere.
inline std::filesystem::path PathOf(std::string_view native) {
#ifdef _WIN32
  return std::u8string(native.begin(), native.end());
#else
  return native;
#endif
}

inline std::string TextOf(const std::filesystem::path& path) {
#ifdef _WIN32
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
#else
  return path.native();
#endif
}

// Knows its content by the system's own means, not by the functions under test.
class TempFolder {
 public:
  explicit TempFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::random_device random;
    std::filesystem::path path;
    do {
      path = parent / ("host-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path));
    native_ = TextOf(path);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
#ifdef _WIN32
    for (const auto& entry : std::filesystem::recursive_directory_iterator(PathOf(native_), ignored))
      SetWritable(entry.path(), true);
#endif
    std::filesystem::remove_all(PathOf(native_), ignored);
  }

  const std::string& native() const { return native_; }
  std::string Native(std::string_view name) const { return native_ + "/" + std::string(name); }
  std::filesystem::path Path(std::string_view name) const { return PathOf(Native(name)); }
  // A path below this folder in the core's spelling; `name` may have separators.
  std::string Core(std::string_view name = "") const {
    return name.empty() ? PathFromNative(native_) : PathFromNative(native_) + "\\" + std::string(name);
  }

  void Write(std::string_view name, std::string_view content) const {
    std::filesystem::create_directories(Path(name).parent_path());
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  std::string Read(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    if (!file) return "<missing>";
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void MakeFolder(std::string_view name) const { std::filesystem::create_directories(Path(name)); }
  void MakeHardLink(std::string_view existing, std::string_view fresh) const {
    std::filesystem::create_hard_link(Path(existing), Path(fresh));
  }
  // Whether the owner may write to it; on Windows the read-only mark.
  void SetReadOnly(std::string_view name) const { SetWritable(Path(name), false); }
  bool IsReadOnly(std::string_view name) const {
    using std::filesystem::perms;
    return (std::filesystem::status(Path(name)).permissions() & perms::owner_write) == perms::none;
  }
  // Everything directly in the folder, sorted.
  std::vector<std::string> Names(std::string_view name = "") const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Path(name)))
      names.push_back(TextOf(entry.path().filename()));
    std::sort(names.begin(), names.end());
    return names;
  }

#ifndef _WIN32
  void Link(std::string_view target, std::string_view name) const {
    std::filesystem::create_symlink(target, Native(name));
  }
  void Pipe(std::string_view name) const { ASSERT_EQ(mkfifo(Native(name).c_str(), 0600), 0); }
  unsigned Mode(std::string_view name) const {
    struct stat facts {};
    return stat(Native(name).c_str(), &facts) == 0 ? facts.st_mode & 07777u : 0;
  }
  void SetMode(std::string_view name, unsigned mode) const { ASSERT_EQ(chmod(Native(name).c_str(), mode), 0); }
#endif

 private:
  static void SetWritable(const std::filesystem::path& path, bool writable) {
    using std::filesystem::perm_options;
    std::error_code ignored;
    const auto change = writable ? perm_options::add : perm_options::remove;
    std::filesystem::permissions(path, std::filesystem::perms::owner_write, change, ignored);
  }

  std::string native_;
};

#ifndef _WIN32
// Permission bits stop this thread until this object is destroyed, also when the tests run as an administrator. The
// thread then accesses files as another user.
class WithoutRights {
 public:
  WithoutRights() : user_(setfsuid(kNobody)) {}
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;
  ~WithoutRights() { setfsuid(static_cast<uid_t>(user_)); }

 private:
  static constexpr uid_t kNobody = 65534;
  int user_;
};
#endif

#ifdef _WIN32
// A disk of about one megabyte that DISCWRIGHT_SMALL_DISK names: tests/windows runs the tests of full disks with one.
class SmallDisk {
 public:
  SmallDisk() {
    const char* const place = std::getenv("DISCWRIGHT_SMALL_DISK");
    if (place != nullptr) folder_ = std::make_unique<TempFolder>(place);
  }
  bool mounted() const { return folder_ != nullptr; }
  const TempFolder& folder() const { return *folder_; }

 private:
  std::unique_ptr<TempFolder> folder_;
};
#else
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
#endif

inline std::string BytesOfSize(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 251);
  return bytes;
}

}  // namespace discwright::host::testing
