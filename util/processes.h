// Running other programs: waiting for one, or following its output as events.
#pragma once

#include <string_view>

#include "util/context.h"

namespace discwright::util {

inline constexpr int kOutputBufferSize = 8192;   // bytes per piece of output
inline constexpr int kASyncPollInterval = 1000;  // milliseconds

// Starts a command line and waits until the program ends or, with `wait_for_idle`, is ready for input. A time-out
// below 1 ms waits without limit. False on time-out or when it could not be started.
bool ShellAndWait(host::ProgramRunner& programs, std::string_view command_line, int timeout_milliseconds,
                  bool wait_for_idle, int window_style);

// Starts `command_line` in `launcher` (made anew); events wake the context's user interface. When that is not
// possible tells the user, notes the cause, cancels the build and returns false with `launcher` empty.
bool StartLauncher(Context& context, std::unique_ptr<host::Launcher>& launcher, std::string_view command_line,
                   int poll_interval, std::function<void(std::string_view)> data_received,
                   std::function<void()> process_ended);

// Starts a program without waiting; ASyncAppRunning is true until it has ended. A program that fails is noted with
// the last it said; nothing else is made of its output or its end.
void ASyncShell(Context& context, std::string_view command_line);

// Waits while `running` is set, handing out the launcher's events and letting the user interface live. Uses no
// processor time while nothing happens.
void WaitWhile(Context& context, const bool& running, std::unique_ptr<host::Launcher>& launcher, int poll_interval);

}  // namespace discwright::util
