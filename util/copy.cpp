// Chooses the copy engine, and contains what both engines use and the copy that shows no progress.
#include "util/copy.h"

#include <algorithm>

#include "host/names.h"
#include "util/copy_engines.h"
#include "util/copy_entries.h"
#include "util/paths.h"

namespace discwright::util {

namespace {

CopyEnd CopyTreeCounted(CopyRun& run, std::string_view source, std::string_view destination) {
  const std::optional<std::int32_t> total = FolderSizeByDir(run, source);
  if (run.is_cancelled) return CopyEnd::kCancelled;
  if (!total) return TreeTooLarge(run, source);
  SetTotal(run, *total);
  const bool complete = CopyTreeChunked(run, std::string(source), std::string(destination));
  return complete ? CopyEnd::kComplete : CopyEnd::kFailed;
}

bool CopyPlainEntry(Notes& notes, EntryFilter& filter, const host::Entry& entry, const std::string& source,
                    const std::string& destination) {
  const Verdict verdict = filter.Decide(entry);
  if (verdict != Verdict::kCopy) return verdict == Verdict::kSkip;
  const std::string from = source + entry.name;
  const std::string to = destination + entry.name;
  if (entry.kind == host::EntryKind::kFolder) return CopyFolderTree(notes, from + "\\", to + "\\");
  const host::Status status = host::CopyFileWithProgress(from, to, [](host::CopyEvent, std::int64_t) { return true; });
  return CheckOrStop(notes, status, from, "could not be copied", Wording::kWithShortText);
}

}  // namespace

bool LetUserIn(CopyRun& run) {
  run.user.DoEvents(0);
  run.is_cancelled = run.is_cancelled || (run.go_on && !run.go_on());
  return !run.is_cancelled;
}

void NoteUncounted(CopyRun& run, const std::string& place, const host::Status& status) {
  if (status.ok() || !run.uncounted.ok()) return;
  run.uncounted_place = place;
  run.uncounted = status;
}

void SetTotal(CopyRun& run, std::int64_t bytes) {
  run.total = bytes;
  run.progress.SetTotal(bytes);
}

void ShowBytes(CopyRun& run, std::int64_t bytes) { run.progress.ShowBytes(std::min(bytes, run.total)); }

bool IsOwnDestination(CopyRun& run, const std::string& source_folder) {
  if (run.own_destination.empty() || !host::SameFolder(source_folder, run.own_destination)) return false;
  run.notes.Add(source_folder, "not copied: it is the destination of the copy");
  return true;
}

CopyEnd TreeTooLarge(CopyRun& run, std::string_view source) {
  run.notes.Add(std::string(source), "nothing was copied: the files in this folder add up to 2 GB or more");
  return CopyEnd::kRuntimeFailure;
}

std::string NameInCopy(const std::string& name, CopiedNames names) {
  return names == CopiedNames::kAsOnDisc ? host::NameOnDisc(name) : name;
}

CopyEnd CopyPathWithProgress(const CopyContext& context, std::string_view source, std::string_view destination,
                             CopiedNames names) {
  const auto& [user, notes, progress, go_on] = context;
  progress.Prepare();
  CopyRun run{user, notes, progress, std::string(destination), names, go_on};
  const CopyEnd end =
      IsWinNT() ? CopyTreeWithProgress(run, source, destination) : CopyTreeCounted(run, source, destination);
  progress.End();
  return end;
}

bool CopyFolderTree(Notes& notes, std::string_view source, std::string_view destination) {
  std::string from(source);
  std::string to(destination);
  AddBackslash(from);
  AddBackslash(to);
  host::Listing listing;
  if (!EnterFolder(notes, from, to, listing)) return false;
  EntryFilter filter(notes, from);
  return std::all_of(listing.value.begin(), listing.value.end(),
                     [&](const host::Entry& entry) { return CopyPlainEntry(notes, filter, entry, from, to); });
}

}  // namespace discwright::util
