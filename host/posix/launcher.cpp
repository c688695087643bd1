// Launches programs and delivers their output.
#include "host/posix/launcher.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>

#include "host/delivery.h"
#include "host/posix/command_line.h"
#include "host/posix/errors.h"
#include "host/posix/output_reader.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {
namespace {

class PosixLauncher : public Launcher {
 public:
  PosixLauncher(std::function<void()> wake, std::function<void(const std::shared_ptr<Child>&)> started)
      : delivery_(std::make_shared<Delivery>(std::move(wake))), started_(std::move(started)) {}
  PosixLauncher(const PosixLauncher&) = delete;
  PosixLauncher& operator=(const PosixLauncher&) = delete;
  ~PosixLauncher() override { delivery_->Release(); }

  void Configure(int buffer_size, int poll_interval) override {
    buffer_size_ = std::max(buffer_size, 1);
    poll_interval_ = std::max(poll_interval, kShortestInterval);
  }

  Status Start(std::string_view command_line) override {
    const Command command = ParseCommandLine(command_line);
    if (!command.status.ok()) return command.status;
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return LastFailure();
    UniqueFd read_end(ends[0]);
    const UniqueFd write_end(ends[1]);
    Status status;
    const std::shared_ptr<Child> child = Child::Start(command.arguments, write_end.get(), status);
    return child == nullptr ? status : Follow(child, std::move(read_end));
  }

  void Deliver() override {
    // Either function may destroy this launcher, so from here on nothing of it is used that is not held here.
    const std::shared_ptr<Delivery> delivery = delivery_;
    const auto received = data_received;
    const auto ended = process_ended;
    std::string piece;
    // Only what is there now: a program that writes faster than it is heard must not hold the caller for ever.
    for (std::size_t left = delivery->Pending(); left > 0 && delivery->Take(piece); --left) {
      if (received) received(piece);
    }
    if (delivery->TakeEnd() && ended) ended();
  }

  ProcessEnd End() const override { return delivery_->end(); }

 private:
  static constexpr int kShortestInterval = 10;  // milliseconds; looking more often would be busy waiting

  Status Follow(const std::shared_ptr<Child>& child, UniqueFd pipe) {
    auto reader = std::make_unique<OutputReader>(std::move(pipe), child, delivery_, buffer_size_, poll_interval_);
    try {
      // On its own from now on: it outlives this launcher for as long as the program runs.
      std::thread([own = std::move(reader)] { own->Run(); }).detach();
    } catch (const std::system_error& error) {
      child->SignalGroup(SIGKILL);
      child->WaitForEnd();
      return StatusOf(error.code().value());
    }
    started_(child);
    return Status::Success();
  }

  std::shared_ptr<Delivery> delivery_;
  std::function<void(const std::shared_ptr<Child>&)> started_;
  int buffer_size_ = 8192;
  int poll_interval_ = 500;
};

}  // namespace

std::unique_ptr<Launcher> MakeLauncher(std::function<void()> wake,
                                       std::function<void(const std::shared_ptr<Child>&)> started) {
  return std::make_unique<PosixLauncher>(std::move(wake), std::move(started));
}

}  // namespace discwright::host
