// Facts about the machine and the running program.
#include "host/system.h"
#include "host/names.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <climits>

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>

#include "host/posix/native_path.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {

std::string ProgramFolder() {
  std::array<char, PATH_MAX> path{};
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) return CurrentFolder();
  return PathFromNative(NativeFolder(std::string(path.data(), static_cast<std::size_t>(length))));
}

std::string CurrentFolder() { return PathFromNative("."); }

std::shared_ptr<void> ClaimFolder(std::string_view folder) {
  const auto claim = std::make_shared<UniqueFd>(open(NativePath(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // On a file system without locks every claim succeeds.
  if (flock(claim->get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return nullptr;
  return claim;
}

void LetLargeWritesFail() { std::signal(SIGXFSZ, SIG_IGN); }

int PlatformId() { return 2; }

Date Today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 64> weekday{};
  const std::size_t length = std::strftime(weekday.data(), weekday.size(), "%a", &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, std::string(weekday.data(), length)};
}

}  // namespace discwright::host
