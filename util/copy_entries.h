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

// Judges the entries of one source folder one after the other; whatever is not to be copied is noted.
class EntryJudge {
 public:
  // `source` ends in a separator.
  EntryJudge(Notes& notes, std::string source) : notes_(notes), source_(std::move(source)) {}

  // kSkip for a device, socket or pipe, and for a name that an earlier entry has taken in another letter case: on the
  // CD one would overwrite the other. kStop, a failed file, for a link that loops or whose target is missing.
  Verdict Judge(const host::Entry& entry);

 private:
  Verdict Stop(const host::Entry& entry, std::string_view cause);

  Notes& notes_;
  std::string source_;
  std::unordered_set<std::string> taken_;
};

// Notes a failure that ends the copy: adds what that means for everything after `place`.
void NoteStop(Notes& notes, const std::string& place, std::string_view cause);

// NoteStop unless the status is a success; returns whether it was. The cause is `what` with the system's reason.
bool CheckOrStop(Notes& notes, const host::Status& status, const std::string& place, const std::string& what);

// The same with the failure's classic text (see FailureText) before the system's reason.
bool CheckOrStopClassic(Notes& notes, const host::Status& status, const std::string& place, const std::string& what);

// The text of the classic failure numbers 61, 70, 71 and 76; empty for every other failure.
std::string_view FailureText(host::ErrorClass error);

// Lists `source`, then makes `destination` with all missing folders. False after a failure, which is noted.
bool EnterFolder(Notes& notes, const std::string& source, const std::string& destination, host::Listing& listing);

// Adds to a 32-bit signed sum of sizes; false when that overflows.
bool AddSize(std::int32_t& sum, std::int64_t size);

}  // namespace discwright::util
