// What every tree copy decides about an entry before copying it, and the notes of what it leaves out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

#include "host/files.h"
#include "util/notes.h"

namespace discwright::util {

enum class Verdict { kCopy, kSkip, kStop };

// Decides about the entries of one source folder one after the other; whatever is not to be copied is noted.
class EntryFilter {
 public:
  // `source` ends in a separator.
  EntryFilter(Notes& notes, std::string source) : notes_(notes), source_(std::move(source)) {}

  // kSkip for a device, socket or pipe, and for a name that an earlier entry has taken in another letter case: on the
  // CD one would overwrite the other. kStop, a failed file, for a link that loops or whose target is missing.
  Verdict Decide(const host::Entry& entry);

 private:
  Verdict Stop(const host::Entry& entry, std::string_view cause);

  Notes& notes_;
  std::string source_;
  std::unordered_set<std::string> taken_;
};

// How a failure is worded in its note. kWithShortText puts "Disk Full", "Permission denied", "Disk Not Ready" or
// "Path Not found" before the system's reason where one of them fits.
enum class Wording { kSystemsReason, kWithShortText };

// Unless the status is a success, notes that the copy ended at `place`: `what` happened ("could not be copied"), why,
// and what that means for the files behind it. Returns whether the status was a success.
bool CheckOrStop(Notes& notes, const host::Status& status, const std::string& place, const std::string& what,
                 Wording wording = Wording::kSystemsReason);

// Lists `source`, then makes `destination` with all missing folders. False after a failure, which is noted.
bool EnterFolder(Notes& notes, const std::string& source, const std::string& destination, host::Listing& listing);

// Adds to a 32-bit signed sum of sizes; false when that overflows.
bool AddSize(std::int32_t& sum, std::int64_t size);

}  // namespace discwright::util
