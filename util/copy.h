// Copying folder trees. CopyPathWithProgress is the one way to copy onto the CD; CopyFolderTree copies without display.
#pragma once

#include <string>
#include <string_view>

#include "host/user_interface.h"
#include "util/notes.h"
#include "util/progress.h"

namespace discwright::util {

// How a tree copy ended. kFailed is the ordinary "false" that most callers do not look at; kRuntimeFailure (the tree
// holds 2 GB or more, which overflows the 32-bit byte count) must end the build step like any fatal error.
enum class CopyEnd { kComplete, kFailed, kRuntimeFailure };

enum class CopiedNames {
  kAsListed,
  kAsOnDisc,  // of a setup or tool CD: see host::NameOnDisc
};

std::string NameInCopy(const std::string& name, CopiedNames names);

// What a copy works with.
struct CopySurroundings {
  host::UserInterface& user;  // is let in between two files, and during a large one
  Notes& notes;               // get whatever is left out
  Progress& progress;
};

// Copies `source` into `destination` with all folders, by the engine of the running platform.
CopyEnd CopyPathWithProgress(const CopySurroundings& surroundings, std::string_view source,
                             std::string_view destination, CopiedNames names = CopiedNames::kAsListed);

// The same tree without any display; false after a file-system failure, which is noted.
bool CopyFolderTree(Notes& notes, std::string_view source, std::string_view destination);

}  // namespace discwright::util
