// Starts child processes in process groups of their own, reads their output, ends them with their groups, and reaps
// them.
#include "host/child.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "host/posix/errors.h"
#include "host/posix/find_program.h"
#include "host/posix/regular_file.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {
namespace {

using namespace std::chrono_literals;

// Starts `arguments` in a process group of its own, with default signal handlers. Returns 0 or an errno value. The
// child's standard output and standard error are the descriptor `output`, or those of the parent when it is below 0.
int Spawn(std::vector<char*>& arguments, int output, pid_t& pid) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (output >= 0) {
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
  }
  // Standard input must come last: `output` itself may have its number, when the parent was started without standard
  // input.
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t signals;
  sigfillset(&signals);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&attributes, &signals);
  posix_spawnattr_setpgroup(&attributes, 0);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  const int error = posix_spawn(&pid, arguments.front(), &actions, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return error;
}

// The process groups of the running captured programs, each named by its leader. A signal handler reads them, so there
// is no lock. When all places are taken, EndStartedPrograms does not end further programs; a build runs only one at a
// time.
class RunningGroups {
 public:
  using Copy = std::array<pid_t, 64>;

  void Add(pid_t leader) { Replace(0, leader); }
  void Remove(pid_t leader) { Replace(leader, 0); }
  Copy Now() const {
    Copy copy{};
    std::copy(places_.begin(), places_.end(), copy.begin());
    return copy;
  }

 private:
  void Replace(pid_t old, pid_t fresh) {
    for (std::atomic<pid_t>& place : places_) {
      pid_t expected = old;
      if (place.compare_exchange_strong(expected, fresh)) return;
    }
  }

  static_assert(std::atomic<pid_t>::is_always_lock_free, "a signal handler reads it");
  std::array<std::atomic<pid_t>, std::tuple_size_v<Copy>> places_{};
};

constinit RunningGroups running_groups;

// While an object of this class exists, this thread handles no request to end this program: a program that was just
// started must be in the list first.
class RequestsToEndBlocked {
 public:
  RequestsToEndBlocked() {
    sigset_t requests;
    sigemptyset(&requests);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&requests, signal);
    pthread_sigmask(SIG_BLOCK, &requests, &before_);
  }
  RequestsToEndBlocked(const RequestsToEndBlocked&) = delete;
  RequestsToEndBlocked& operator=(const RequestsToEndBlocked&) = delete;
  ~RequestsToEndBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_{};
};

bool IsAnyThere(const RunningGroups::Copy& groups) {
  return std::any_of(groups.begin(), groups.end(), [](pid_t leader) { return leader > 0 && kill(-leader, 0) == 0; });
}

void Signal(const RunningGroups::Copy& groups, int signal) {
  for (const pid_t leader : groups) {
    if (leader > 0) kill(-leader, signal);
  }
}

std::string SignalName(int signal) {
  const char* name = sigabbrev_np(signal);
  return name != nullptr ? std::string("SIG") + name : "signal " + std::to_string(signal);
}

class PosixChild : public Child {
 public:
  PosixChild(pid_t pid, UniqueFd pipe) : pid_(pid), pipe_(std::move(pipe)) {}

  std::size_t Read(std::span<char> buffer, int milliseconds) override {
    if (pipe_.valid()) {
      pollfd waiting{pipe_.get(), POLLIN, 0};
      if (poll(&waiting, 1, milliseconds) <= 0) return 0;
      const long count = ReadSome(pipe_.get(), buffer.data(), buffer.size());
      if (count > 0) return static_cast<std::size_t>(count);
      pipe_.Close();  // no program can write any more
    }
    WaitForEnd(milliseconds);
    return 0;
  }

  std::size_t Waiting() override {
    int count = 0;
    return pipe_.valid() && ioctl(pipe_.get(), FIONREAD, &count) == 0 ? static_cast<std::size_t>(count) : 0;
  }

  bool WaitForEnd(int milliseconds) override {
    siginfo_t info{};
    // Another thread may signal the child during this wait, so the child is not reaped and the lock is not held.
    while (milliseconds < 0 && !Reap()) waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOWAIT);
    // waitid() has no time limit, so this waits by asking again and again.
    const auto last_moment = Clock::now() + std::chrono::milliseconds(milliseconds);
    for (auto pause = 1ms; !Reap(); pause = std::min(2 * pause, 16ms)) {
      if (Clock::now() >= last_moment) return false;
      std::this_thread::sleep_for(pause);
    }
    return true;
  }

  ProcessEnd End() override {
    const std::lock_guard lock(mutex_);
    if (WIFSIGNALED(wait_status_)) return {0, SignalName(WTERMSIG(wait_status_))};
    return {WEXITSTATUS(wait_status_), ""};
  }

  bool RequestEnd() override {
    const std::lock_guard lock(mutex_);
    return !is_reaped_ && kill(-pid_, SIGTERM) == 0;
  }

  void WaitUntilGone(Clock::time_point last_moment) override {
    // For kill(), a child that has ended but was not reaped still exists.
    while (Reap(), kill(-pid_, 0) == 0) {
      if (Clock::now() >= last_moment) {
        kill(-pid_, SIGKILL);
        return;
      }
      std::this_thread::sleep_for(20ms);
    }
  }

 private:
  bool Reap() {
    const std::lock_guard lock(mutex_);
    if (is_reaped_) return true;
    siginfo_t info{};
    const bool runs =
        waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 && info.si_pid == 0;
    if (runs) return false;
    running_groups.Remove(pid_);  // before the system can give the number to another program
    const pid_t result = waitpid(pid_, &wait_status_, WNOHANG);
    // When there is no child to wait for (because SIGCHLD is ignored), its exit code is lost.
    is_reaped_ = result == pid_ || (result < 0 && errno == ECHILD);
    return is_reaped_;
  }

  const pid_t pid_;
  UniqueFd pipe_;
  std::mutex mutex_;  // needed because after reaping, the pid may be that of another program
  bool is_reaped_ = false;
  int wait_status_ = 0;
};

class PosixProcess : public Process {
 public:
  explicit PosixProcess(std::shared_ptr<Child> child) : child_(std::move(child)) {}

  // The system does not tell when a program is ready for input, so a running program counts as ready.
  bool Wait(int milliseconds, bool wait_for_idle) override {
    return wait_for_idle || child_->WaitForEnd(milliseconds >= 1 ? milliseconds : -1);
  }

 private:
  std::shared_ptr<Child> child_;
};

// `pipe` is the end from which the child's output is read; it is not valid when the output is not captured.
Result<std::shared_ptr<Child>> Start(std::string_view command_line, int output, UniqueFd pipe) {
  Command command = ParseCommandLine(command_line);
  if (!command.status.ok()) return command.status;
  std::vector<char*> pointers;
  for (std::string& argument : command.arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  pid_t pid = 0;
  const RequestsToEndBlocked blocked;
  const int error = Spawn(pointers, output, pid);
  if (error != 0) return StatusOf(error);
  if (pipe.valid()) running_groups.Add(pid);
  return std::make_shared<PosixChild>(pid, std::move(pipe));
}

}  // namespace

Result<std::shared_ptr<Child>> StartCaptured(std::string_view command_line) {
  int ends[2] = {-1, -1};
  if (pipe2(ends, O_CLOEXEC) != 0) return LastFailure();
  UniqueFd read_end(ends[0]);
  const UniqueFd write_end(ends[1]);
  return Start(command_line, write_end.get(), std::move(read_end));
}

void EndStartedPrograms() {
  constexpr timespec kPause{0, 20'000'000};
  constexpr int kLooks = 100;
  const RunningGroups::Copy groups = running_groups.Now();
  Signal(groups, SIGTERM);
  // The threads that read the output of these programs reap them.
  for (int look = 0; look < kLooks && IsAnyThere(groups); ++look) nanosleep(&kPause, nullptr);
  Signal(groups, SIGKILL);
}

std::unique_ptr<Process> StartUncaptured(std::string_view command_line, int, int) {
  const std::shared_ptr<Child> child = Start(command_line, -1, UniqueFd()).value;
  if (!child) return nullptr;
  try {
    // Reaps the child, even when the caller has destroyed the Process before.
    std::thread([child] { child->WaitForEnd(-1); }).detach();
  } catch (const std::system_error&) {
    child->RequestEnd();
    child->WaitUntilGone(Child::Clock::now());
    child->WaitForEnd(-1);
    return nullptr;
  }
  return std::make_unique<PosixProcess>(child);
}

}  // namespace discwright::host
