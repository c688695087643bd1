// Mounts and unmounts a tmpfs.
#include "tests/end_to_end/small_disk.h"

#include <sys/mount.h>

#include <cerrno>
#include <cstring>
#include <fstream>

namespace discwright::testing {

namespace fs = std::filesystem;

SmallDisk::SmallDisk(fs::path folder, std::uintmax_t bytes) : folder_(std::move(folder)) {
  fs::create_directories(folder_);
  const std::string size = "size=" + std::to_string(bytes);
  error_ = mount("end_to_end", folder_.c_str(), "tmpfs", 0, size.c_str()) == 0 ? 0 : errno;
}

SmallDisk::~SmallDisk() {
  if (error_ == 0) umount2(folder_.c_str(), MNT_DETACH);
}

std::string SmallDisk::Reason() const {
  return std::string("this machine lets us mount no disk: ") + std::strerror(error_);
}

bool SmallDisk::MakeReadOnly() const {
  return mount("end_to_end", folder_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

void SmallDisk::FillUpTo(std::uintmax_t bytes) const {
  std::ofstream filler(folder_ / "filler", std::ios::binary);
  const std::string block(4096, 'f');
  while (filler && fs::space(folder_).available > bytes) filler.write(block.data(), 4096).flush();
}

}  // namespace discwright::testing
