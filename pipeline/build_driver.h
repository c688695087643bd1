// The build driver: makes the image from the choices on the pages. Call Bind once, then FinishApp to build.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

// Runs the whole build and returns its result. Returns only when the build has ended or was cancelled; the user
// interface handles its events meanwhile.
steps::BuildResult FinishApp(steps::Context& context);

// Marks the build as cancelled and shows the finish page. The running step notices that and ends.
void CancelApp(steps::Context& context);

// Sets the CancelApp of the context.
void Bind(steps::Context& context);

}  // namespace discwright::pipeline
