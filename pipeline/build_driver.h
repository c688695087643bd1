// The build driver: from the choices on the pages to a finished image.
#pragma once

#include "util/context.h"

namespace discwright::pipeline {

// Runs the whole build in the calling handler; returns when it has ended or was cancelled, and says what came of it.
util::BuildResult FinishApp(util::Context& context);

// Marks the build cancelled and shows the finish page; the running step ends by itself.
void CancelApp(util::Context& context);

// Binds the context's CancelApp.
void Bind(util::Context& context);

}  // namespace discwright::pipeline
