// The two engines behind CopyPathWithProgress: the system's own file copy (NT family), and a copy in chunks (Windows
// 9x). Call CopyPathWithProgress of util/copy.h, which chooses one of them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "host/files.h"
#include "util/copy.h"

namespace discwright::util {

// The state of a running copy.
struct CopyRun {
  host::UserInterface& user;
  Notes& notes;
  Progress& progress;
  std::string own_destination = {};  // the destination folder of the whole copy; empty: IsOwnDestination is never true
  CopiedNames names = CopiedNames::kAsListed;
  std::function<bool()> go_on = {};  // see CopyContext
  bool is_cancelled = false;         // go_on has returned false
  std::string uncounted_place = {};  // the first entry that could not be counted
  host::Status uncounted = {};       // why it could not be counted; a success when everything was
  std::int64_t total = 0;            // in bytes
  std::int64_t start_value = 0;      // NT family: the bytes that were shown when the current file began
};

// Functions of both engines.
// Lets the user in while files are counted. Returns false, from then on, when the copy is no longer wanted.
bool LetUserIn(CopyRun& run);
void NoteUncounted(CopyRun& run, const std::string& place, const host::Status& status);  // keeps the first failure
void SetTotal(CopyRun& run, std::int64_t bytes);
void ShowBytes(CopyRun& run, std::int64_t bytes);  // shows at most the total
// Whether `source_folder` is the destination of the whole copy; notes it if so. Such a folder must be skipped, because
// copying it into itself would never end.
bool IsOwnDestination(CopyRun& run, const std::string& source_folder);
// Notes that the files of `source` are too large for a 32-bit byte count. Returns kRuntimeFailure.
CopyEnd TreeTooLarge(CopyRun& run, std::string_view source);

// The bytes of all files in a tree. Links are followed unless they loop. What cannot be counted, for example a folder
// that cannot be listed, counts as 0; the first of these stands in `run` afterwards. Both let the user in after every
// entry. They return nothing when the 32-bit signed sum overflows, and when the copy is cancelled.
// ByFind (NT family) adds the low 32 bits of each size, and ignores every name that begins with a dot.
// ByDir (Windows 9x) adds whole sizes and counts all names.
std::optional<std::int32_t> FolderSizeByFind(CopyRun& run, std::string_view folder);
std::optional<std::int32_t> FolderSizeByDir(CopyRun& run, std::string_view folder);

// The engine of the NT family. CopyTreeByFind copies one folder with everything below it; it returns false when the
// copy stopped early.
CopyEnd CopyTreeWithProgress(CopyRun& run, std::string_view source, std::string_view destination);
bool CopyTreeByFind(CopyRun& run, std::string source, std::string destination);
host::Status CopyOneFile(CopyRun& run, const std::string& source_file, const std::string& dest_file);
// The system calls this while it copies a file. The result is always true, which means "continue": Cancel does not
// interrupt a copy. The build driver tests for a cancellation between two steps.
bool CopyProgress(CopyRun& run, host::CopyEvent event, std::int64_t transferred);

// The engine of Windows 9x. CopyFileChunked does not shorten an existing destination file that is longer than the
// source. It counts one byte more than the file's length. Both are kept as they have always been.
bool CopyTreeChunked(CopyRun& run, std::string source, std::string destination);
host::Status CopyFileChunked(CopyRun& run, const std::string& source_file, const std::string& dest_file);

}  // namespace discwright::util
