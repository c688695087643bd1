// Programs that a build step runs, and what becomes of the build when one cannot be started.
#include "steps/processes.h"

#include <string>
#include <utility>

namespace discwright::steps {

namespace {

constexpr int kASyncPollInterval = 1000;  // milliseconds

void NoteEnd(util::Notes& notes, const std::string& command_line, const host::ProcessEnd& end,
             const std::string& last_words) {
  if (end.Succeeded()) return;
  notes.Add(command_line, last_words.empty() ? end.Text() : end.Text() + ": " + last_words);
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
  const auto last_words = std::make_shared<util::LastWords>();
  const auto received = [last_words](std::string_view text) { last_words->Add(text); };
  const auto ended = [&context, last_words, command = std::string(command_line)] {
    context.main().ASyncAppRunning = false;
    NoteEnd(context.notes, command, context.ASyncApp->End(), last_words->Text());
  };
  if (StartLauncher(context, context.ASyncApp, command_line, kASyncPollInterval, {received, ended})) {
    context.main().ASyncAppRunning = true;
  }
}

void WaitForASyncApp(Context& context) {
  util::WaitWhile(context.user, context.main().ASyncAppRunning, context.ASyncApp, kASyncPollInterval);
}

}  // namespace discwright::steps
