// Runs programs for a build step. Start a program with ASyncShell, then wait for its end with WaitForASyncApp.
#pragma once

#include <memory>
#include <string_view>

#include "steps/context.h"
#include "util/processes.h"

namespace discwright::steps {

// Starts `command_line` in `launcher`. If that fails, shows a message, notes the cause, cancels the build and returns
// false; `launcher` is then empty. `poll_interval` is in milliseconds.
bool StartLauncher(Context& context, std::unique_ptr<host::Launcher>& launcher, std::string_view command_line,
                   int poll_interval, util::ProgramEvents events);

// Starts a program and returns at once. ASyncAppRunning of the main form is true until the program has ended. If the
// program fails, the note contains the end of its output. If it cannot be started, the build is cancelled.
void ASyncShell(Context& context, std::string_view command_line);

// Waits until the program that ASyncShell started has ended. The user interface handles its events meanwhile.
void WaitForASyncApp(Context& context);

}  // namespace discwright::steps
