// What came of a build that has ended.
#pragma once

#include "util/context.h"

namespace discwright::pipeline {

// Looks at the image, the notes and the log of the mastering; reads the image for its digest when the context wants
// that, and lets the user in meanwhile.
util::BuildResult ResultOf(util::Context& context);

}  // namespace discwright::pipeline
