// Performs one build without a window. RunBuild presses the wizard's buttons one after the other and returns the exit
// code.
#pragma once

#include "desktop/console/options.h"
#include "desktop/console/terminal.h"
#include "steps/context.h"

namespace discwright::desktop {

// The exit codes of the program.
inline constexpr int kExitMade = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitPageCheck = 3;
inline constexpr int kExitMadeWithWarnings = 4;
inline constexpr int kExitCancelled = 130;

// Loads the session and applies the options. Then lists the controls if the options ask for it; otherwise presses Next
// up to the summary, and Finish. Prints messages on standard error and the result on standard output. wizard::Bind must
// have been called for `context`.
int RunBuild(steps::Context& context, Terminal& terminal, const Options& options);

}  // namespace discwright::desktop
