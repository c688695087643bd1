// Tells facts about the machine and the running program.
#include "host/system.h"

#include <fcntl.h>
#include <sys/auxv.h>
#include <sys/file.h>
#include <unistd.h>
#include <climits>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <memory>

#include "host/names.h"
#include "host/posix/native_path.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {

namespace {

// The path by which the program was started, with links followed; used where /proc is missing.
std::string StartedPath() {
  // The function returns addresses as numbers.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  const auto* const started = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
  const std::unique_ptr<char, void (*)(void*)> real(started == nullptr ? nullptr : realpath(started, nullptr),
                                                    std::free);
  return real == nullptr ? std::string() : std::string(real.get());
}

std::string FindProgramFolder() {
  std::array<char, PATH_MAX> path{};
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  const std::string program = length > 0 ? std::string(path.data(), static_cast<std::size_t>(length)) : StartedPath();
  return program.starts_with('/') ? PathFromNative(NativeFolder(program)) : std::string();
}

// Found once. Nothing in the program changes the current folder, from which a relative path of StartedPath starts.
std::string& TheProgramFolder() {
  static std::string folder = FindProgramFolder();
  return folder;
}

}  // namespace

std::string ProgramFolder() { return TheProgramFolder(); }

void UseProgramFolder(std::string_view folder) { TheProgramFolder() = folder; }

std::string CurrentFolder() { return PathFromNative("."); }

std::shared_ptr<void> ClaimFolder(std::string_view folder) {
  const auto claim = std::make_shared<UniqueFd>(open(NativePath(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // On a file system without locks every claim succeeds.
  if (flock(claim->get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return nullptr;
  return claim;
}

void SetUpSignals() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGCHLD, SIG_DFL);
}

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
