// Decides which entries of a source folder are copied, and words the notes on those that are not.
#include "util/copy_entries.h"

#include <algorithm>
#include <array>
#include <limits>

#include "host/names.h"

namespace discwright::util {

namespace {

struct ShortText {
  host::ErrorClass error;
  std::string_view text;
};

constexpr std::array<ShortText, 4> kShortTexts{{
    {host::ErrorClass::kDiskFull, "Disk Full"},
    {host::ErrorClass::kAccessDenied, "Permission denied"},
    {host::ErrorClass::kNotReady, "Disk Not Ready"},
    {host::ErrorClass::kNotFound, "Path Not found"},
}};

std::string WithShortText(const host::Status& status) {
  const auto* const found = std::ranges::find(kShortTexts, status.error, &ShortText::error);
  if (found == kShortTexts.end()) return status.cause;
  const std::string text(found->text);
  return status.cause.empty() ? text : text + " (" + status.cause + ")";
}

}  // namespace

bool CheckOrStop(Notes& notes, const host::Status& status, const std::string& place, const std::string& what,
                 Wording wording) {
  if (status.ok()) return true;
  const std::string reason = wording == Wording::kWithShortText ? WithShortText(status) : status.cause;
  notes.Add(place, (reason.empty() ? what : what + ": " + reason) +
                       "; the copy stopped here, and the rest of this folder and of the folders above it was not "
                       "copied");
  return false;
}

host::Status WhyNotCopied(const host::Entry& entry) {
  using host::ErrorClass;
  if (entry.loops)
    return host::Status::Failure(ErrorClass::kLoop, "it is a link back to one of its own parent folders");
  if (entry.broken) return host::Status::Failure(ErrorClass::kNotFound, "it is a link whose target is missing");
  return entry.problem;
}

Verdict EntryFilter::Decide(const host::Entry& entry) {
  if (!CheckOrStop(notes_, WhyNotCopied(entry), source_ + entry.name, "could not be copied")) return Verdict::kStop;
  if (entry.kind == host::EntryKind::kSpecial) {
    notes_.Add(source_ + entry.name, "not copied: it is a device, a socket or a pipe");
    return Verdict::kSkip;
  }
  if (!earlier_names_.insert(host::FoldCase(entry.name)).second) {
    notes_.Add(source_ + entry.name, "not copied: another name in this folder differs from it only in letter case");
    return Verdict::kSkip;
  }
  return Verdict::kCopy;
}

bool EnterFolder(Notes& notes, const std::string& source, const std::string& destination, host::Listing& listing) {
  // The source is listed before the destination is created. Otherwise a destination inside the source would be listed,
  // and copied into itself without end.
  listing = host::ListFolder(source, "*.*");
  return CheckOrStop(notes, host::MakeFolders(destination), destination, "could not be created",
                     Wording::kWithShortText) &&
         CheckOrStop(notes, listing.status, source, "could not be listed", Wording::kWithShortText);
}

bool AddSize(std::int32_t& sum, std::int64_t size) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (size > std::int64_t{Limits::max()} - sum || size < std::int64_t{Limits::min()} - sum) return false;
  sum += static_cast<std::int32_t>(size);
  return true;
}

}  // namespace discwright::util
