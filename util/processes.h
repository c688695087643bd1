// Running other programs: waiting for one, or following its output. Build steps use steps/processes.h, which puts these
// to work on the running build.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/processes.h"
#include "host/user_interface.h"

namespace discwright::util {

inline constexpr int kOutputBufferSize = 8192;  // bytes per piece of output

// What is done with a program's output and its end.
struct ProgramEvents {
  std::function<void(std::string_view text)> data_received;
  std::function<void()> process_ended;
};

// Starts a command line and waits until the program ends or, with `wait_for_idle`, is ready for input. A time-out
// below 1 ms waits without limit. False on time-out or when it could not be started.
bool ShellAndWait(host::ProgramRunner& programs, std::string_view command_line, int timeout_milliseconds,
                  bool wait_for_idle, int window_style);

// Starts `command_line` in a new launcher, which goes to `launcher`; it wakes `user` whenever there is something to
// deliver. On a failure `launcher` is empty. `poll_interval` is in milliseconds.
host::Status StartLauncher(host::ProgramRunner& programs, host::UserInterface& user,
                           std::unique_ptr<host::Launcher>& launcher, std::string_view command_line, int poll_interval,
                           ProgramEvents events);

// Waits while `running` is set, handing out the launcher's events and letting the user in every `poll_interval`
// milliseconds and whenever something has happened. Uses no processor time while nothing happens.
void WaitWhile(host::UserInterface& user, const bool& running, std::unique_ptr<host::Launcher>& launcher,
               int poll_interval);

// The end of a program's output, as much of it as is worth telling when the program fails.
class LastWords {
 public:
  void Add(std::string_view output);
  // Begins with a whole line, or where there is none with a whole word.
  std::string Text() const;

 private:
  std::string text_;
  bool is_cut_ = false;
};

}  // namespace discwright::util
