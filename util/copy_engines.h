// The two engines behind CopyPathWithProgress: the platform's own copy (NT family) and a chunked one (Windows 9x).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/files.h"
#include "util/context.h"
#include "util/copy.h"

namespace discwright::util {

// One copy with its display.
struct CopyRun {
  Context& context;
  forms::Label& LblMsg;
  forms::ProgressBar& Progress;
  std::int64_t start_value = 0;  // the bar's value at the start of the file in hand (NT family)
  std::string own_destination;   // the whole copy's; empty: not looked for
  CopiedNames names = CopiedNames::kAsListed;
};

// Set to 0 when an NT-family copy starts and tested after every file. Nobody sets it: such a copy runs to its end
// whatever the user presses.
extern std::int32_t copy_cancel_flag;

// Display shared by the engines.
void ShowFileInHand(CopyRun& run, std::string_view name);
void ShowBytes(CopyRun& run, std::int64_t bytes);  // never beyond the bar's maximum
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
// Called by the platform during each file; always true ("continue").
bool CopyProgress(CopyRun& run, host::CopyEvent event, std::int64_t transferred);

// Windows 9x. CopyFileChunked does not truncate a longer destination, and counts one byte more than the file's length.
bool CopyTreeChunked(CopyRun& run, std::string source, std::string destination);
host::Status CopyFileChunked(CopyRun& run, const std::string& source_file, const std::string& dest_file);

}  // namespace discwright::util
