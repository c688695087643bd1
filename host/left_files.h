// Deletes what killed runs left.
#pragma once

#include <string_view>

namespace discwright::host {

// Deletes the files in the folder that have names of base/temporary_names.h and that no running program is writing.
// What cannot be deleted stays, without a failure: nothing depends on it.
void RemoveLeftFiles(std::string_view folder);

}  // namespace discwright::host
