// The workspace: the folder tree that becomes the CD.
#pragma once

#include "util/context.h"

namespace discwright::pipeline {

// Resets the workspace to a copy of the template tree.
void Prepare_CDDir(util::Context& context);

// Deletes the workspace and the working key file after a build.
void CleanSession(util::Context& context);

}  // namespace discwright::pipeline
