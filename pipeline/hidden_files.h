// Finds files of the user that nobody will see on the CD. The mastering leaves two names out of every folder, because
// the boot loader and the boot catalogue have them. Call NoteHiddenFiles before the mastering.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

inline constexpr const char* kBootLoaderName = "loader.bin";  // both are exact: letter case matters
inline constexpr const char* kBootCatalogueName = "boot.catalog";

// Adds a note for each file or folder in the workspace that has one of these names, except for the boot loader itself.
// Folders that cannot be listed are left to the mastering, which then fails. Ends early when the build is cancelled.
void NoteHiddenFiles(steps::Context& context);

}  // namespace discwright::pipeline
