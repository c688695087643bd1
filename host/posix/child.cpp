// Starts and reaps child processes.
#include "host/posix/child.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "host/posix/errors.h"

namespace discwright::host {
namespace {

class SpawnSettings {
 public:
  explicit SpawnSettings(int output) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawnattr_init(&attributes_);
    // Standard input comes last: `output` itself may have its number when the parent was started without one.
    if (output >= 0) {
      posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
      posix_spawn_file_actions_adddup2(&actions_, output, STDERR_FILENO);
    }
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    sigset_t signals;
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    posix_spawnattr_setpgroup(&attributes_, 0);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;
  ~SpawnSettings() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
  }

  // 0 or an errno value.
  int Spawn(pid_t& pid, std::vector<char*>& arguments) {
    return posix_spawn(&pid, arguments.front(), &actions_, &attributes_, arguments.data(), environ);
  }

 private:
  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
};

std::string SignalName(int signal) {
  const char* name = sigabbrev_np(signal);
  return name != nullptr ? std::string("SIG") + name : "signal " + std::to_string(signal);
}

}  // namespace

std::shared_ptr<Child> Child::Start(const std::vector<std::string>& arguments, int output, Status& status) {
  std::vector<std::string> texts = arguments;  // the system asks for writable ones
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  pid_t pid = 0;
  const int error = SpawnSettings(output).Spawn(pid, pointers);
  status = error == 0 ? Status::Success() : StatusOf(error);
  return error == 0 ? std::make_shared<Child>(pid) : nullptr;
}

bool Child::Reap(int options) {
  const std::lock_guard lock(mutex_);
  if (reaped_) return true;
  const pid_t result = waitpid(pid_, &wait_status_, options);
  // Without a child to wait for (somebody ignores SIGCHLD) its end cannot be learnt any better.
  reaped_ = result == pid_ || (result < 0 && errno == ECHILD);
  return reaped_;
}

bool Child::LookEnded() { return Reap(WNOHANG); }

void Child::WaitForEnd() {
  // Waits without taking the child away and without the lock: others may signal it meanwhile.
  siginfo_t info{};
  while (!LookEnded()) waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOWAIT);
}

ProcessEnd Child::End() const {
  const std::lock_guard lock(mutex_);
  if (WIFSIGNALED(wait_status_)) return {0, SignalName(WTERMSIG(wait_status_))};
  return {WEXITSTATUS(wait_status_), ""};
}

bool Child::SignalGroup(int signal) {
  const std::lock_guard lock(mutex_);
  return !reaped_ && kill(-pid_, signal) == 0;
}

bool Child::GroupIsAlive() const { return kill(-pid_, 0) == 0; }

void Child::SignalWhatIsLeft(int signal) const { kill(-pid_, signal); }

}  // namespace discwright::host
