// Starts other programs, waits for them, and delivers their output.
#include "util/processes.h"

#include <algorithm>
#include <utility>

namespace discwright::util {

namespace {

constexpr int kNoCreationFlags = 0;
constexpr std::size_t kLongestTail = 500;  // bytes

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
  // Deliver also reports the end of a program that ended before this wait. Without a launcher nothing would ever set
  // `running` to false.
  while (running && launcher) {
    user.DoEvents(poll_interval);
    if (running && launcher) launcher->Deliver();
  }
}

void OutputTail::Add(std::string_view output) {
  text_.append(output);
  if (text_.size() <= kLongestTail) return;
  text_.erase(0, text_.size() - kLongestTail);
  is_cut_ = true;
}

std::string OutputTail::Text() const {
  std::string text = text_;
  text.erase(text.find_last_not_of("\r\n ") + 1);
  if (!is_cut_) return text;
  const std::size_t line_end = text.find('\n');
  const std::size_t start = line_end != std::string::npos ? line_end : text.find(' ');
  return "... " + text.substr(start == std::string::npos ? 0 : start + 1);
}

}  // namespace discwright::util
