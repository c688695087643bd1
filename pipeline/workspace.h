// The workspace is the folder tree that becomes the CD. Call Prepare_CDDir before the other steps of a build, and
// CleanSession after them if the user wants that.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

// Deletes the workspace of an earlier build and copies the template tree into a new one. Halts the build if a folder is
// in its place that this program did not make. Stops when the build is cancelled.
void Prepare_CDDir(steps::Context& context);

// Deletes the workspace and the working key file after a build. Stops when the build is cancelled.
void CleanSession(steps::Context& context);

}  // namespace discwright::pipeline
