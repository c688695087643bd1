// Runs programs for a build step, and cancels the build when a program cannot be started.
#include "steps/processes.h"

#include <string>
#include <utility>

namespace discwright::steps {

namespace {

constexpr int kASyncPollInterval = 1000;  // milliseconds

void NoteEnd(util::Notes& notes, const std::string& command_line, const host::ProcessEnd& end,
             const std::string& output_tail) {
  if (end.Succeeded()) return;
  notes.Add(command_line, output_tail.empty() ? end.Text() : end.Text() + ": " + output_tail);
}

}  // namespace

bool StartLauncher(Context& context, std::unique_ptr<host::Launcher>& launcher, std::string_view command_line,
                   int poll_interval, util::ProgramEvents events) {
  const host::Status status =
      util::StartLauncher(context.programs, context.user, launcher, command_line, poll_interval, std::move(events));
  if (context.notes.Check(status, std::string(command_line), "could not be started")) return true;
  context.Halt({"There appears to be a problem in your installation, try to manually register redirect.dll",
                "Critical Error", host::MessageIcon::kCritical, true});
  return false;
}

void ASyncShell(Context& context, std::string_view command_line) {
  const auto output = std::make_shared<util::OutputTail>();
  const auto received = [output](std::string_view text) { output->Add(text); };
  const auto ended = [&context, output, command = std::string(command_line)] {
    context.main().ASyncAppRunning = false;
    NoteEnd(context.notes, command, context.ASyncApp->End(), output->Text());
  };
  if (StartLauncher(context, context.ASyncApp, command_line, kASyncPollInterval, {received, ended})) {
    context.main().ASyncAppRunning = true;
  }
}

void WaitForASyncApp(Context& context) {
  util::WaitWhile(context.user, context.main().ASyncAppRunning, context.ASyncApp, kASyncPollInterval);
}

}  // namespace discwright::steps
