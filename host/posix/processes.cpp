// Runs other programs.
#include "host/processes.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "host/posix/child.h"
#include "host/posix/command_line.h"
#include "host/posix/launcher.h"

namespace discwright::host {
namespace {

using namespace std::chrono_literals;

// Whether a child has ended, told by the thread that waits for it.
class EndSignal {
 public:
  void Set() {
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
  }

  // A time below 1 ms waits without limit.
  bool Wait(int milliseconds) {
    std::unique_lock lock(mutex_);
    const auto ended = [this] { return ended_; };
    if (milliseconds >= 1) return changed_.wait_for(lock, std::chrono::milliseconds(milliseconds), ended);
    changed_.wait(lock, ended);
    return true;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool ended_ = false;
};

class PosixProcess : public Process {
 public:
  explicit PosixProcess(std::shared_ptr<EndSignal> end) : end_(std::move(end)) {}

  // Nothing tells when a program is ready for input, so one that runs counts as ready.
  bool Wait(int milliseconds, bool wait_for_idle) override { return wait_for_idle || end_->Wait(milliseconds); }

 private:
  std::shared_ptr<EndSignal> end_;
};

// The launched programs that may still run.
class RunningChildren {
 public:
  void Add(const std::shared_ptr<Child>& child) {
    const std::lock_guard lock(mutex_);
    std::erase_if(children_, [](const std::weak_ptr<Child>& known) { return known.expired(); });
    children_.push_back(child);
  }

  void EndAll() {
    std::vector<std::shared_ptr<Child>> ending = Signal(SIGTERM);
    const auto is_gone = [](const std::shared_ptr<Child>& child) {
      child->LookEnded();  // one that has ended but was not reaped yet would count as alive
      return !child->GroupIsAlive();
    };
    const auto last_moment = std::chrono::steady_clock::now() + 2s;
    while (std::erase_if(ending, is_gone), !ending.empty() && std::chrono::steady_clock::now() < last_moment) {
      std::this_thread::sleep_for(20ms);
    }
    for (const auto& child : ending) child->SignalWhatIsLeft(SIGKILL);
  }

 private:
  // Signals every group whose program still runs, and returns these.
  std::vector<std::shared_ptr<Child>> Signal(int signal) {
    const std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<Child>> signalled;
    for (const std::weak_ptr<Child>& known : children_) {
      const std::shared_ptr<Child> child = known.lock();
      if (child != nullptr && child->SignalGroup(signal)) signalled.push_back(child);
    }
    return signalled;
  }

  std::mutex mutex_;
  std::vector<std::weak_ptr<Child>> children_;
};

class PosixProgramRunner : public ProgramRunner {
 public:
  std::unique_ptr<Process> StartProcess(std::string_view command_line, int, int) override {
    const Command command = ParseCommandLine(command_line);
    Status status = command.status;
    const std::shared_ptr<Child> child = status.ok() ? Child::Start(command.arguments, -1, status) : nullptr;
    if (child == nullptr) return nullptr;
    auto end = std::make_shared<EndSignal>();
    try {
      // Goes on when the caller has closed the process: the child must be reaped all the same.
      std::thread([child, end] {
        child->WaitForEnd();
        end->Set();
      }).detach();
    } catch (const std::system_error&) {
      child->SignalGroup(SIGKILL);
      child->WaitForEnd();
      return nullptr;
    }
    return std::make_unique<PosixProcess>(end);
  }

  std::unique_ptr<Launcher> CreateLauncher(std::function<void()> wake) override {
    return MakeLauncher(std::move(wake), [running = running_](const auto& child) { running->Add(child); });
  }

  void EndAll() override { running_->EndAll(); }

 private:
  std::shared_ptr<RunningChildren> running_ = std::make_shared<RunningChildren>();
};

}  // namespace

std::unique_ptr<ProgramRunner> SystemProgramRunner() { return std::make_unique<PosixProgramRunner>(); }

}  // namespace discwright::host
