// The build driver: from the choices on the pages to a finished image.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

// Runs the whole build in the calling handler; returns when it has ended or was cancelled, and says what came of it.
steps::BuildResult FinishApp(steps::Context& context);

// Marks the build cancelled and shows the finish page; the running step ends by itself.
void CancelApp(steps::Context& context);

// Binds the context's CancelApp.
void Bind(steps::Context& context);

}  // namespace discwright::pipeline
