// Deletes temporary files that killed runs have left. Call RemoveLeftFiles with a folder to which the program writes.
#pragma once

#include <string_view>

namespace discwright::host {

// Deletes the files in the folder that have a temporary name (base/temporary_names.h) and that no running program is
// writing. It is no failure when a file cannot be deleted, because nothing depends on it.
void RemoveLeftFiles(std::string_view folder);

}  // namespace discwright::host
