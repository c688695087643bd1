// Implements the launcher, and the thread that reads the output of its program.
#include "host/processes.h"

#include <algorithm>
#include <array>
#include <exception>

#include "host/child.h"
#include "host/native_text.h"
#include "host/output_queue.h"
#include "host/threads.h"

namespace discwright::host {
namespace {

using namespace std::chrono_literals;
using Clock = Child::Clock;

// The work of the reading thread, from the program's first output until no program can write to the pipe any more.
void ReadOutput(Child& child, OutputQueue& queue) {
  std::array<char, 16384> buffer{};
  const auto read = [&](std::size_t most, int milliseconds) {
    const std::size_t count = child.Read(std::span(buffer).first(std::min(most, buffer.size())), milliseconds);
    queue.Add({buffer.data(), count}, Clock::now());
    return count;
  };
  // This waits for the end of the child and not for that of the pipe: programs that the child has started may keep the
  // pipe open.
  while (!child.WaitForEnd(0)) read(buffer.size(), queue.MillisecondsToWait(Clock::now()));
  // Reads what the child has written before its end. It reads no further, because programs that the child has started
  // may write for ever.
  std::size_t left = child.Waiting();
  for (std::size_t count = left; left > 0 && count > 0; left -= count) count = read(left, 0);
  queue.AddEnd(child.End());
  // Programs that the child has started must not be stopped by a pipe that is full or closed.
  while (child.Read(buffer, -1) > 0) {
  }
}

class SystemLauncher : public Launcher {
 public:
  explicit SystemLauncher(std::function<void()> wake) : wake_(std::move(wake)) {}
  SystemLauncher(const SystemLauncher&) = delete;
  SystemLauncher& operator=(const SystemLauncher&) = delete;
  ~SystemLauncher() override {
    if (queue_) queue_->Release();
  }

  void Configure(int buffer_size, int poll_interval) override {
    buffer_size_ = std::max(buffer_size, 1);
    poll_interval_ = std::max(std::chrono::milliseconds(poll_interval), 10ms);  // a shorter one wastes processor time
  }

  Status Start(std::string_view command_line) override {
    const Result<std::shared_ptr<Child>> started = StartCaptured(command_line);
    if (!started.ok()) return started.status;
    const std::shared_ptr<Child>& child = started.value;
    queue_ = std::make_shared<OutputQueue>(static_cast<std::size_t>(buffer_size_), poll_interval_, wake_);
    try {
      // The thread may outlive this launcher: it reads until no program can write to the pipe any more.
      Thread([child, queue = queue_] {
        try {
          ReadOutput(*child, *queue);
        } catch (...) {
          queue->AddFailure(std::current_exception());
        }
      }).Detach();
    } catch (const std::exception& error) {
      child->RequestEnd();
      child->WaitUntilGone(Clock::now());
      child->WaitForEnd(-1);
      return Status::Failure(ErrorClass::kOther, error.what());
    }
    return Status::Success();
  }

  void Deliver() override {
    if (!queue_) return;
    // Either function may destroy this launcher, so local copies are used. Nothing can be taken from the queue of a
    // destroyed launcher.
    const std::shared_ptr<OutputQueue> queue = queue_;
    const auto received = data_received;
    const auto ended = process_ended;
    // Only the pieces that are there now are delivered: a program that writes faster than its output is shown must not
    // hold the caller for ever.
    for (std::size_t left = queue->PieceCount(); left > 0; --left) {
      const std::optional<std::string> piece = queue->Take();
      if (piece && received) received(TextFromNative(*piece));
    }
    const std::optional<ProcessEnd> end = queue->TakeEnd();
    if (!end) return;
    end_ = *end;
    if (ended) ended();
  }

  ProcessEnd End() const override { return end_; }

 private:
  std::function<void()> wake_;
  std::shared_ptr<OutputQueue> queue_;  // null before the start
  int buffer_size_ = 8192;              // bytes
  std::chrono::milliseconds poll_interval_ = 500ms;
  ProcessEnd end_;
};

class SystemRunner : public ProgramRunner {
 public:
  std::unique_ptr<Process> StartProcess(std::string_view command_line, int window_style, int creation_flags) override {
    return StartUncaptured(command_line, window_style, creation_flags);
  }

  std::unique_ptr<Launcher> CreateLauncher(std::function<void()> wake) override {
    return std::make_unique<SystemLauncher>(std::move(wake));
  }

  void EndAll() override { EndStartedPrograms(); }
};

}  // namespace

std::unique_ptr<ProgramRunner> SystemProgramRunner() { return std::make_unique<SystemRunner>(); }

}  // namespace discwright::host
