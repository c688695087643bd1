// The workspace: the folder tree that becomes the CD.
#pragma once

#include <string>

#include "util/context.h"

namespace discwright::pipeline {

std::string WorkspaceRoot();  // program folder + "\vexacd"

// Resets the workspace to a copy of the template tree.
void Prepare_CDDir(util::Context& context);

// Deletes the workspace and the working key file after a build.
void CleanSession(util::Context& context);

}  // namespace discwright::pipeline
