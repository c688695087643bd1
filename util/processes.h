// Runs other programs. ShellAndWait waits for a program; StartLauncher and WaitWhile follow its output. Build steps use
// steps/processes.h instead, which also notes failures and ends the build.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/processes.h"
#include "host/user_interface.h"

namespace discwright::util {

inline constexpr int kOutputBufferSize = 8192;  // the largest piece of output, in bytes

// The functions that receive a program's output and its end.
struct ProgramEvents {
  std::function<void(std::string_view text)> data_received;
  std::function<void()> process_ended;
};

// Starts a command line and waits until the program ends. With `wait_for_idle`, waits until the program is ready for
// input instead. A time-out of 0 or less waits without limit. Returns false after a time-out, or when the program could
// not be started. `window_style` is the number that Windows gives to the state of a new window; 0 leaves the choice to
// the program.
bool ShellAndWait(host::ProgramRunner& programs, std::string_view command_line, int timeout_milliseconds,
                  bool wait_for_idle, int window_style);

// Starts `command_line` in a new launcher and stores the launcher in `launcher` before the program starts, so that
// `events` can use it. The launcher wakes `user` whenever there is output or an end to deliver. After a failure
// `launcher` is empty. `poll_interval` is in milliseconds.
host::Status StartLauncher(host::ProgramRunner& programs, host::UserInterface& user,
                           std::unique_ptr<host::Launcher>& launcher, std::string_view command_line, int poll_interval,
                           ProgramEvents events);

// Waits while `running` is true and `launcher` is not empty. Delivers the launcher's events, and lets `user` handle its
// own, whenever there are any and at least every `poll_interval` milliseconds. Uses no processor time in between.
void WaitWhile(host::UserInterface& user, const bool& running, std::unique_ptr<host::Launcher>& launcher,
               int poll_interval);

// Keeps the end of a program's output, to be shown when the program fails.
class OutputTail {
 public:
  void Add(std::string_view output);
  // At most the last 500 bytes. Shortened output begins with "... " and a complete line, or a complete word when there
  // is no complete line.
  std::string Text() const;

 private:
  std::string text_;
  bool is_cut_ = false;
};

}  // namespace discwright::util
