// Programs that a build step runs. Start one with ASyncShell, then wait for it with WaitForASyncApp.
#pragma once

#include <memory>
#include <string_view>

#include "steps/context.h"
#include "util/processes.h"

namespace discwright::steps {

// Starts `command_line` in `launcher`. When that is not possible, tells the user, notes the cause, cancels the build
// and returns false with `launcher` empty. `poll_interval` is in milliseconds.
bool StartLauncher(Context& context, std::unique_ptr<host::Launcher>& launcher, std::string_view command_line,
                   int poll_interval, util::ProgramEvents events);

// Starts a program without waiting; ASyncAppRunning is true until it has ended. A program that fails is noted with the
// end of its output. A program that cannot be started cancels the build.
void ASyncShell(Context& context, std::string_view command_line);

// Waits until the program that ASyncShell started has ended; the user interface stays alive.
void WaitForASyncApp(Context& context);

}  // namespace discwright::steps
