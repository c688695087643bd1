// Running other programs: waiting for one, or following its output as events.
#include "util/processes.h"

#include <algorithm>
#include <utility>

namespace discwright::util {

namespace {

constexpr int kNoCreationFlags = 0;
constexpr std::size_t kMostLastWords = 500;  // bytes

}  // namespace

bool ShellAndWait(host::ProgramRunner& programs, std::string_view command_line, int timeout_milliseconds,
                  bool wait_for_idle, int window_style) {
  const std::unique_ptr<host::Process> process = programs.StartProcess(command_line, window_style, kNoCreationFlags);
  return process != nullptr && process->Wait(std::max(timeout_milliseconds, 0), wait_for_idle);
}

host::Status StartLauncher(host::ProgramRunner& programs, host::UserInterface& user,
                           std::unique_ptr<host::Launcher>& launcher, std::string_view command_line, int poll_interval,
                           ProgramEvents events) {
  launcher = programs.CreateLauncher([&user] { user.Wake(); });
  if (!launcher) return host::Status::Failure(host::ErrorClass::kOther, "this system cannot run programs");
  launcher->Configure(kOutputBufferSize, poll_interval);
  launcher->data_received = std::move(events.data_received);
  launcher->process_ended = std::move(events.process_ended);
  host::Status status = launcher->Start(command_line);
  if (!status.ok()) launcher.reset();
  return status;
}

void WaitWhile(host::UserInterface& user, const bool& running, std::unique_ptr<host::Launcher>& launcher,
               int poll_interval) {
  // A program that ended before the wait is still to be delivered; without a launcher no end can come any more.
  while (running && launcher) {
    user.DoEvents(poll_interval);
    if (running && launcher) launcher->Deliver();
  }
}

void LastWords::Add(std::string_view output) {
  text_.append(output);
  if (text_.size() <= kMostLastWords) return;
  text_.erase(0, text_.size() - kMostLastWords);
  is_cut_ = true;
}

std::string LastWords::Text() const {
  std::string text = text_;
  text.erase(text.find_last_not_of("\r\n ") + 1);
  if (!is_cut_) return text;
  const std::size_t line_end = text.find('\n');
  const std::size_t start = line_end != std::string::npos ? line_end : text.find(' ');
  return "... " + text.substr(start == std::string::npos ? 0 : start + 1);
}

}  // namespace discwright::util
