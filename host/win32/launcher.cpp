// Launches programs and delivers their output.
#include "host/win32/launcher.h"

#include <system_error>

#include "host/delivering_launcher.h"
#include "host/leading_parts.h"
#include "host/native_text.h"
#include "host/threads.h"
#include "host/win32/errors.h"
#include "host/win32/output_reader.h"
#include "host/win32/shell.h"

namespace discwright::host {
namespace {

class WindowsLauncher : public DeliveringLauncher {
 public:
  WindowsLauncher(std::function<void()> wake, std::function<void(const std::shared_ptr<Child>&)> started)
      : DeliveringLauncher(std::move(wake)), started_(std::move(started)) {}

  Status Start(std::string_view command_line) override {
    const std::optional<std::string> native = CodePageBytes(command_line);
    if (!native) return NameNotInCodePage();
    OwnedHandle output;
    Status status;
    const std::shared_ptr<Child> child = Child::Start(RunnableCommandLine(*native), output, status);
    if (child != nullptr) return Follow(child, std::move(output));
    status.cause.append(": ").append(LeadingParts(WithoutLeadingBlanks(command_line)).front().program);
    return status;
  }

 private:
  Status Follow(const std::shared_ptr<Child>& child, OwnedHandle output) {
    const auto reader =
        std::make_shared<OutputReader>(std::move(output), child, delivery(), buffer_size(), poll_interval());
    try {
      // On its own from now on: it outlives this launcher for as long as the program runs.
      Thread([reader] { reader->Run(); }).Detach();
    } catch (const std::system_error& error) {
      child->Terminate();
      return Status::Failure(ErrorClass::kOther, error.what());
    }
    started_(child);
    return Status::Success();
  }

  std::function<void(const std::shared_ptr<Child>&)> started_;
};

}  // namespace

std::unique_ptr<Launcher> MakeLauncher(std::function<void()> wake,
                                       std::function<void(const std::shared_ptr<Child>&)> started) {
  return std::make_unique<WindowsLauncher>(std::move(wake), std::move(started));
}

}  // namespace discwright::host
