// What came of a build that has ended.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

// Looks at the image, the notes and the log of the mastering. Reads the whole image for its digest when the context
// wants that, with DoEvents between the pieces.
steps::BuildResult ResultOf(steps::Context& context);

}  // namespace discwright::pipeline
