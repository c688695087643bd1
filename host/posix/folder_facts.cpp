// Asks the kernel about folders. Links are followed by this program's own code, because the last parts of a path need
// not exist.
#include "host/folder_facts.h"

#include <fcntl.h>
#include <linux/stat.h>
#include <sys/stat.h>
#include <unistd.h>
#include <climits>

#include <array>

#include "host/names.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/mounts.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

// After a folder was deleted, another one may get its number. So the time of its creation is preferred, but not every
// file system stores this time.
std::string IdentityOf(const struct statx& facts) {
  if ((facts.stx_mask & STATX_BTIME) == 0) return "number " + std::to_string(facts.stx_ino);
  return "made " + std::to_string(facts.stx_btime.tv_sec) + "." + std::to_string(facts.stx_btime.tv_nsec);
}

bool IsMountPoint(const std::string& native, const struct statx& facts) {
  if ((facts.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0) {
    return (facts.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
  }
  // Linux before 5.8 does not report this attribute.
  return IsInMountTable("/proc/self/mounts", NativePath(FollowedPath(PathFromNative(native))));
}

// The target of a link; empty for everything else.
std::string TargetOf(const std::string& native) {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = readlink(native.c_str(), target.data(), target.size());
  return length <= 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(length));
}

}  // namespace

Result<FolderFacts> FactsOfFolder(std::string_view path) {
  const Result<std::string> found = RealPath(path);
  if (!found.ok()) return found.status;
  const std::string& native = found.value;
  struct statx facts {};
  constexpr unsigned kWanted = STATX_TYPE | STATX_INO | STATX_BTIME;
  if (statx(AT_FDCWD, native.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, kWanted, &facts) != 0) {
    return LastFailure();
  }
  if (!S_ISDIR(facts.stx_mode)) return NotARegularFile(false);
  return FolderFacts{IdentityOf(facts), IsMountPoint(native, facts)};
}

std::string FollowedPath(std::string_view path) {
  constexpr int kMostLinks = 40;  // the system's own limit
  std::string left = PathToNative(path);
  std::string followed = "/";
  int links = 0;
  while (!left.empty()) {
    const std::size_t end = std::min(left.find('/'), left.size());
    const std::string name = left.substr(0, end);
    left.erase(0, std::min(end + 1, left.size()));
    if (name.empty() || name == ".") continue;
    if (name == "..") {
      followed = NativeFolder(followed);
      continue;
    }
    const std::string next = NativeJoin(followed, name);
    const std::string target = links < kMostLinks ? TargetOf(next) : "";
    if (target.empty()) {
      followed = next;
      continue;
    }
    ++links;
    if (target.starts_with('/')) followed = "/";
    left.insert(0, target + "/");
  }
  return PathFromNative(followed);
}

}  // namespace discwright::host
