// Launches programs and delivers their output.
#include "host/posix/launcher.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>

#include "host/delivering_launcher.h"
#include "host/posix/command_line.h"
#include "host/posix/errors.h"
#include "host/posix/output_reader.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {
namespace {

class PosixLauncher : public DeliveringLauncher {
 public:
  PosixLauncher(std::function<void()> wake, std::function<void(const std::shared_ptr<Child>&)> started)
      : DeliveringLauncher(std::move(wake)), started_(std::move(started)) {}

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

 private:
  Status Follow(const std::shared_ptr<Child>& child, UniqueFd pipe) {
    auto reader = std::make_unique<OutputReader>(std::move(pipe), child, delivery(), buffer_size(), poll_interval());
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

  std::function<void(const std::shared_ptr<Child>&)> started_;
};

}  // namespace

std::unique_ptr<Launcher> MakeLauncher(std::function<void()> wake,
                                       std::function<void(const std::shared_ptr<Child>&)> started) {
  return std::make_unique<PosixLauncher>(std::move(wake), std::move(started));
}

}  // namespace discwright::host
