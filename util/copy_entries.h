// Decides which entries of a source folder are copied, and words the notes on those that are not. Make one EntryFilter
// for each source folder and ask it about every entry.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

#include "host/files.h"
#include "util/notes.h"

namespace discwright::util {

// What to do with an entry. kStop ends the copy of the folder.
enum class Verdict { kCopy, kSkip, kStop };

// Why an entry can be neither counted nor copied: its problem, or that it is a link that loops or whose target is
// missing. A success for every other entry.
host::Status WhyNotCopied(const host::Entry& entry);

class EntryFilter {
 public:
  // `source` ends in a separator.
  EntryFilter(Notes& notes, std::string source) : notes_(notes), source_(std::move(source)) {}

  // kSkip for a device, a socket or a pipe. kSkip also for a name that differs from an earlier one only in letter case:
  // on the CD one file would overwrite the other. kStop for what WhyNotCopied refuses. Every entry
  // that is not copied is noted.
  Verdict Decide(const host::Entry& entry);

 private:
  Notes& notes_;
  std::string source_;
  std::unordered_set<std::string> earlier_names_;  // with their letter case folded
};

// How a note words a failure. kWithShortText puts one of the texts "Disk Full", "Permission denied", "Disk Not Ready"
// and "Path Not found" before the system's reason when one of them fits.
enum class Wording { kSystemReason, kWithShortText };

// Returns true when the status is a success. Otherwise notes that the copy stopped at the path `place`: what happened
// (`what`, for example "could not be copied"), the reason, and that the files after it are missing too.
bool CheckOrStop(Notes& notes, const host::Status& status, const std::string& place, const std::string& what,
                 Wording wording = Wording::kSystemReason);

// Lists `source`, then creates `destination` with all missing folders. Returns false after a failure, which is noted.
bool EnterFolder(Notes& notes, const std::string& source, const std::string& destination, host::Listing& listing);

// Adds a size to a 32-bit signed sum, both in bytes. Returns false, and leaves the sum alone, when it would overflow.
bool AddSize(std::int32_t& sum, std::int64_t size);

}  // namespace discwright::util
