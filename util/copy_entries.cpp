// Judging the entries of a source folder, and the notes of what is left out.
#include "util/copy_entries.h"

#include <array>
#include <limits>

#include "host/names.h"

namespace discwright::util {

namespace {

struct ClassicFailure {
  host::ErrorClass error;
  int number;
  std::string_view text;
};

constexpr std::array<ClassicFailure, 4> kClassicFailures{{
    {host::ErrorClass::kDiskFull, 61, "Disk Full"},
    {host::ErrorClass::kAccessDenied, 70, "Permission denied"},
    {host::ErrorClass::kNotReady, 71, "Disk Not Ready"},
    {host::ErrorClass::kNotFound, 76, "Path Not found"},
}};

std::string WithReason(const std::string& what, const std::string& reason) {
  return reason.empty() ? what : what + ": " + reason;
}

}  // namespace

std::string_view FailureText(host::ErrorClass error) {
  for (const ClassicFailure& failure : kClassicFailures) {
    if (failure.error == error) return failure.text;
  }
  return {};
}

void NoteStop(Notes& notes, const std::string& place, std::string_view cause) {
  notes.Add(place,
            std::string(cause) +
                "; the copy stopped here, and the rest of this folder and of the folders above it was not copied");
}

bool CheckOrStop(Notes& notes, const host::Status& status, const std::string& place, const std::string& what) {
  if (!status.ok()) NoteStop(notes, place, WithReason(what, status.cause));
  return status.ok();
}

bool CheckOrStopClassic(Notes& notes, const host::Status& status, const std::string& place, const std::string& what) {
  const std::string text(FailureText(status.error));
  if (text.empty()) return CheckOrStop(notes, status, place, what);
  NoteStop(notes, place, what + ": " + (status.cause.empty() ? text : text + " (" + status.cause + ")"));
  return false;
}

Verdict EntryJudge::Stop(const host::Entry& entry, std::string_view cause) {
  NoteStop(notes_, source_ + entry.name, cause);
  return Verdict::kStop;
}

Verdict EntryJudge::Judge(const host::Entry& entry) {
  if (entry.kind == host::EntryKind::kSpecial) {
    notes_.Add(source_ + entry.name, "not copied, it is a device, a socket or a pipe");
    return Verdict::kSkip;
  }
  if (entry.loops) return Stop(entry, "not copied, it is a link back to one of its own parent folders");
  if (entry.broken) return Stop(entry, "could not be copied, it is a link whose target is missing");
  if (!taken_.insert(host::FoldCase(entry.name)).second) {
    notes_.Add(source_ + entry.name, "not copied: another name in this folder differs from it only in letter case");
    return Verdict::kSkip;
  }
  return Verdict::kCopy;
}

bool EnterFolder(Notes& notes, const std::string& source, const std::string& destination, host::Listing& listing) {
  // Listed first: a destination that is made inside the source must not be copied into itself without end.
  listing = host::ListFolder(source, "*.*");
  return CheckOrStopClassic(notes, host::MakeFolders(destination), destination, "could not be created") &&
         CheckOrStopClassic(notes, listing.status, source, "could not be listed");
}

bool AddSize(std::int32_t& sum, std::int64_t size) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (size > std::int64_t{Limits::max()} - sum || size < std::int64_t{Limits::min()} - sum) return false;
  sum += static_cast<std::int32_t>(size);
  return true;
}

}  // namespace discwright::util
