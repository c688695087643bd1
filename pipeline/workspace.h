// The workspace: the folder tree that becomes the CD.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

// Resets the workspace to a copy of the template tree.
void Prepare_CDDir(steps::Context& context);

// Deletes the workspace and the working key file after a build.
void CleanSession(steps::Context& context);

}  // namespace discwright::pipeline
