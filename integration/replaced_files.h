// Tells the user which files of a folder will replace files that are already on the CD. This is how people replace a
// file on purpose, so it is a remark and not a failure. Call RemarkReplacedFiles before the folder is copied.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::integration {

// Adds a remark for each file of the tree `source` that has the same path in the tree `destination`, in any letter
// case. After many remarks, one more tells how many files there are beside them. Folders that cannot be listed are left
// to the copy, which notes them. Ends early when the build is cancelled.
void RemarkReplacedFiles(steps::Context& context, const std::string& source, const std::string& destination);

}  // namespace discwright::integration
