// One build without a window: the wizard's own handlers pressed one after the other.
#pragma once

#include "desktop/console/options.h"
#include "desktop/console/terminal.h"
#include "steps/context.h"

namespace discwright::desktop {

// Exit codes of the headless program.
inline constexpr int kExitMade = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitPageCheck = 3;
inline constexpr int kExitMadeWithWarnings = 4;
inline constexpr int kExitCancelled = 130;

// Loads the session, applies the options, presses Next until the summary, then Finish, or lists the controls. Prints
// what happened; the result on standard output. `context` must be bound (wizard::Bind). Returns the exit code.
int RunBuild(steps::Context& context, Terminal& terminal, const Options& options);

}  // namespace discwright::desktop
