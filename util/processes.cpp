// Running other programs: waiting for one, or following its output as events.
#include "util/processes.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace discwright::util {

namespace {

constexpr int kNoCreationFlags = 0;
// The end of a program's output, as much of it as is worth telling.
class LastWords {
 public:
  void Add(std::string_view output) {
    text_.append(output);
    if (text_.size() <= kMost) return;
    text_.erase(0, text_.size() - kMost);
    is_cut_ = true;
  }

  // Begins with a whole line, or where there is none with a whole word.
  std::string Text() const {
    std::string text = text_;
    text.erase(text.find_last_not_of("\r\n ") + 1);
    if (!is_cut_) return text;
    const std::size_t line_end = text.find('\n');
    const std::size_t start = line_end != std::string::npos ? line_end : text.find(' ');
    return "... " + text.substr(start == std::string::npos ? 0 : start + 1);
  }

 private:
  static constexpr std::size_t kMost = 500;  // bytes
  std::string text_;
  bool is_cut_ = false;
};

void NoteEnd(Notes& notes, const std::string& command_line, const host::ProcessEnd& end,
             const std::string& last_words) {
  if (end.Succeeded()) return;
  notes.Add(command_line, last_words.empty() ? end.Text() : end.Text() + ": " + last_words);
}

void ReportFailedStart(Context& context, std::string_view command_line, const std::string& reason) {
  context.notes.Add(std::string(command_line), "could not be started: " + reason);
  context.Halt({"There appears to be a problem in your installation, try to manually register redirect.dll",
                "Critical Error", host::MessageIcon::kCritical, true});
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
  launcher = context.programs.CreateLauncher([&user = context.user] { user.Wake(); });
  if (!launcher) {
    ReportFailedStart(context, command_line, "this system cannot run programs");
    return false;
  }
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
  const auto last_words = std::make_shared<LastWords>();
  const auto received = [last_words](std::string_view text_pipe) { last_words->Add(text_pipe); };
  const auto ended = [&context, last_words, command = std::string(command_line)] {
    context.main().ASyncAppRunning = false;
    NoteEnd(context.notes, command, context.ASyncApp->End(), last_words->Text());
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
