// Finds out the result of a build. FinishApp calls ResultOf when the build has ended.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

// Determines the result from the image, the notes and the mastering log. If the context wants a digest, this reads the
// whole image; the user interface handles its events meanwhile, and the user can still cancel.
steps::BuildResult ResultOf(steps::Context& context);

}  // namespace discwright::pipeline
