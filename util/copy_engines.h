// The two engines behind CopyPathWithProgress: the platform's own copy (NT family) and a chunked one (Windows 9x).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/files.h"
#include "util/copy.h"

namespace discwright::util {

// One copy under way.
struct CopyRun {
  host::UserInterface& user;
  Notes& notes;
  Progress& progress;
  std::string own_destination = {};  // of the whole copy; while it is empty, no folder is taken for it
  CopiedNames names = CopiedNames::kAsListed;
  std::int64_t total = 0;        // bytes
  std::int64_t start_value = 0;  // NT family: the bytes that were shown when the file in hand began
};

// Used by both engines.
void SetTotal(CopyRun& run, std::int64_t bytes);
void ShowBytes(CopyRun& run, std::int64_t bytes);  // never more than the total
// Whether a source folder is what the whole copy goes to, which is then noted: a copy into a folder below its own
// source would go on for ever.
bool IsOwnDestination(CopyRun& run, const std::string& source_folder);
// Notes that `source` is too large for a 32-bit byte count.
CopyEnd TreeTooLarge(CopyRun& run, std::string_view source);

// The bytes of a tree, links followed unless they loop; nothing when the 32-bit signed sum overflows. A folder that
// cannot be listed counts 0. ByFind takes the low 32 bits of each size, and passes over every name that begins with a
// dot; ByDir takes all, and yields to `user` after every entry.
std::optional<std::int32_t> FolderSizeByFind(std::string_view folder);
std::optional<std::int32_t> FolderSizeByDir(host::UserInterface& user, std::string_view folder);

// NT family. CopyTreeByFind copies one folder with all below it; false when it stopped.
CopyEnd CopyTreeWithProgress(CopyRun& run, std::string_view source, std::string_view destination);
bool CopyTreeByFind(CopyRun& run, std::string source, std::string destination);
host::Status CopyOneFile(CopyRun& run, const std::string& source_file, const std::string& dest_file);
// Called by the platform during each file. Always true ("go on"): a copy of this family runs to its end, whatever the
// user presses.
bool CopyProgress(CopyRun& run, host::CopyEvent event, std::int64_t transferred);

// Windows 9x. CopyFileChunked does not truncate a longer destination, and counts one byte more than the file's length.
bool CopyTreeChunked(CopyRun& run, std::string source, std::string destination);
host::Status CopyFileChunked(CopyRun& run, const std::string& source_file, const std::string& dest_file);

}  // namespace discwright::util
