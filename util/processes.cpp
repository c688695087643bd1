// Running other programs: waiting for one, or following its output as events.
#include "util/processes.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace discwright::util {

namespace {

constexpr int kNoCreationFlags = 0;
constexpr std::size_t kLastWords = 500;  // bytes of a failed program's output worth telling

// A launcher that its own event handlers may release or replace: the one that delivers lives on until its Deliver has
// returned, but hands out nothing more.
class ReleasableLauncher : public host::Launcher {
 public:
  explicit ReleasableLauncher(std::unique_ptr<host::Launcher> launcher)
      : run_(std::make_shared<Run>(Run{std::move(launcher), this})) {
    // The handlers are called as copies, because releasing destroys the originals.
    run_->launcher->data_received = [run = run_.get()](std::string_view text_pipe) {
      if (run->owner == nullptr) return;
      if (const auto handler = run->owner->data_received) handler(text_pipe);
    };
    run_->launcher->process_ended = [run = run_.get()] {
      if (run->owner == nullptr) return;
      if (const auto handler = run->owner->process_ended) handler();
    };
  }
  ~ReleasableLauncher() override { run_->owner = nullptr; }
  ReleasableLauncher(const ReleasableLauncher&) = delete;
  ReleasableLauncher& operator=(const ReleasableLauncher&) = delete;

  void Configure(int buffer_size, int poll_interval) override { run_->launcher->Configure(buffer_size, poll_interval); }
  host::Status Start(std::string_view command_line) override { return run_->launcher->Start(command_line); }
  void Deliver() override {
    const std::shared_ptr<Run> delivering = run_;
    delivering->launcher->Deliver();
  }
  host::ProcessEnd End() const override { return run_->launcher->End(); }

 private:
  struct Run {
    std::unique_ptr<host::Launcher> launcher;
    ReleasableLauncher* owner;  // null once released
  };
  std::shared_ptr<Run> run_;
};

void ReportFailedStart(Context& context, std::string_view command_line, const std::string& reason) {
  context.notes.Add(std::string(command_line), "Could not be started: " + reason);
  context.user.ShowMessage({"There appears to be a problem in your installation, try to manually register redirect.dll",
                            "Critical Error", host::MessageIcon::kCritical, true});
  context.CancelApp();
}

}  // namespace

bool ShellAndWait(host::ProgramRunner& programs, std::string_view command_line, int timeout_milliseconds,
                  bool wait_for_idle, int window_style) {
  const std::unique_ptr<host::Process> process = programs.StartProcess(command_line, window_style, kNoCreationFlags);
  return process != nullptr && process->Wait(std::max(timeout_milliseconds, 0), wait_for_idle);
}

bool StartLauncher(Context& context, std::unique_ptr<host::Launcher>& launcher, std::string_view command_line,
                   int poll_interval, std::function<void(std::string_view)> data_received,
                   std::function<void()> process_ended) {
  launcher.reset();
  std::unique_ptr<host::Launcher> created = context.programs.CreateLauncher([&user = context.user] { user.Wake(); });
  if (!created) {
    ReportFailedStart(context, command_line, "this system cannot run programs");
    return false;
  }
  launcher = std::make_unique<ReleasableLauncher>(std::move(created));
  launcher->Configure(kOutputBufferSize, poll_interval);
  launcher->data_received = std::move(data_received);
  launcher->process_ended = std::move(process_ended);
  const host::Status status = launcher->Start(command_line);
  if (status.ok()) return true;
  launcher.reset();
  ReportFailedStart(context, command_line, status.cause);
  return false;
}

void ASyncShell(Context& context, std::string_view command_line) {
  const auto last_words = std::make_shared<std::string>();
  const auto received = [last_words](std::string_view text_pipe) {
    last_words->append(text_pipe);
    if (last_words->size() > kLastWords) last_words->erase(0, last_words->size() - kLastWords);
  };
  const auto ended = [&context, last_words, command = std::string(command_line)] {
    context.main().ASyncAppRunning = false;
    const host::ProcessEnd end = context.ASyncApp->End();
    if (!end.Succeeded()) context.notes.Add(command, end.Text() + (last_words->empty() ? "" : ": " + *last_words));
  };
  if (StartLauncher(context, context.ASyncApp, command_line, kASyncPollInterval, received, ended)) {
    context.main().ASyncAppRunning = true;
  }
}

void WaitWhile(Context& context, const bool& running, std::unique_ptr<host::Launcher>& launcher, int poll_interval) {
  // A program that ended before the wait is still to be delivered; without a launcher no end can come any more.
  while (running && launcher) {
    context.user.DoEvents(poll_interval);
    if (running && launcher) launcher->Deliver();
  }
}

}  // namespace discwright::util
