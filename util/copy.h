// Copies folder trees. Use CopyPathWithProgress for everything that goes onto the CD. CopyFolderTree shows no progress.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/user_interface.h"
#include "util/notes.h"
#include "util/progress.h"

namespace discwright::util {

// How the copy of a tree ended.
enum class CopyEnd {
  kComplete,
  kFailed,          // files are missing and noted; the build goes on
  kRuntimeFailure,  // the tree is 2 GB or larger, which overflows the 32-bit byte count; the build must end
  kCancelled,       // nothing was copied, because CopyContext::go_on returned false while the files were counted
};

// The names that the files and folders get in the copy.
enum class CopiedNames {
  kAsListed,  // the names that the source folder lists
  kAsOnDisc,  // for the CD of a Windows Setup or a tool: see host::NameOnDisc
};

std::string NameInCopy(const std::string& name, CopiedNames names);

// The objects that a copy uses.
struct CopyContext {
  host::UserInterface& user;  // handles its events between two files and while a large file is copied
  Notes& notes;               // receives a note for everything that is not copied
  Progress& progress;
  // Whether the copy is still wanted. It is asked after every file that is counted, and no more once the copy has
  // begun: a copy runs to its end. Empty: always.
  std::function<bool()> go_on = {};
};

// Copies `source` with all its folders into `destination`. Uses the copy engine of the running platform.
CopyEnd CopyPathWithProgress(const CopyContext& context, std::string_view source, std::string_view destination,
                             CopiedNames names = CopiedNames::kAsListed);

// Copies a tree without showing progress. Returns false after a failure of the file system, which is noted.
bool CopyFolderTree(Notes& notes, std::string_view source, std::string_view destination);

}  // namespace discwright::util
