// Runs other programs.
#include "host/processes.h"

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <system_error>
#include <thread>

#include "host/posix/child.h"
#include "host/posix/command_line.h"
#include "host/posix/launcher.h"
#include "host/running_children.h"

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

  void EndAll() override {
    auto ending = running_->EndEach([](Child& child) { return child.SignalGroup(SIGTERM); });
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
  std::shared_ptr<RunningChildren<Child>> running_ = std::make_shared<RunningChildren<Child>>();
};

}  // namespace

std::unique_ptr<ProgramRunner> SystemProgramRunner() { return std::make_unique<PosixProgramRunner>(); }

}  // namespace discwright::host
