// The copy engine of the NT family. The system copies each file and reports the bytes copied so far.
#include "host/names.h"
#include "util/copy_engines.h"
#include "util/copy_entries.h"
#include "util/paths.h"

namespace discwright::util {

namespace {

// A file whose name begins with a dot is copied but not counted. A folder whose name begins with a dot is not copied,
// which is noted. Kept as it has always been.
bool BeginsWithDot(const host::Entry& entry) { return entry.name.starts_with('.'); }

// The low 32 bits of a file's size as a signed number. A size of 4 GB or more is therefore counted wrong. Kept as it
// has always been.
std::int32_t LowHalf(std::int64_t size) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(size)); }

std::optional<std::int32_t> CountedSize(CopyRun& run, const std::string& folder, const host::Entry& entry) {
  if (BeginsWithDot(entry)) return 0;
  const host::Status status = WhyNotCopied(entry);
  NoteUncounted(run, folder + entry.name, status);
  if (!status.ok() || entry.kind == host::EntryKind::kSpecial) return 0;
  if (entry.kind == host::EntryKind::kFolder) return FolderSizeByFind(run, folder + entry.name + "\\");
  return LowHalf(entry.size);
}

// The user sees no message when the counted size is 0. The note keeps the missing files from going unnoticed.
void NoteNothingCopied(CopyRun& run, const std::string& source) {
  const host::Listing listing = host::ListFolder(source, "*.*");
  if (!run.notes.Check(listing.status, source, "nothing was copied: the folder could not be listed")) return;
  const std::string what = "could not be read, and nothing was copied from " + host::PathToNative(source);
  if (!run.notes.Check(run.uncounted, run.uncounted_place, what) || listing.value.empty()) return;
  run.notes.Add(source, "nothing was copied: this folder contains only empty files, or names that begin with a dot");
}

// A folder as the host spells it, with its last separator. PathToNative removes a separator at the end of a path, so
// the path is converted with a name behind it.
std::string ShownFolder(const std::string& folder) {
  std::string shown = host::PathToNative(folder + "x");
  shown.pop_back();
  return shown;
}

bool CopyShownFile(CopyRun& run, const std::string& name, const std::string& source_file,
                   const std::string& dest_file) {
  run.progress.ShowFile(name);
  const host::Status status = CopyOneFile(run, source_file, dest_file);
  return CheckOrStop(run.notes, status, source_file, "could not be copied");
}

bool CopyEntry(CopyRun& run, EntryFilter& filter, const host::Entry& entry, const std::string& source,
               const std::string& destination) {
  const bool folder = entry.kind == host::EntryKind::kFolder;
  if (folder && BeginsWithDot(entry)) {
    run.notes.Add(source + entry.name, "not copied: folders whose names begin with a dot are skipped");
    return true;
  }
  const Verdict verdict = filter.Decide(entry);
  if (verdict != Verdict::kCopy) return verdict == Verdict::kSkip;
  const std::string to = destination + NameInCopy(entry.name, run.names);
  if (!folder) return CopyShownFile(run, entry.name, source + entry.name, to);
  if (IsOwnDestination(run, source + entry.name)) return true;
  return CopyTreeByFind(run, source + entry.name + "\\", to + "\\");
}

}  // namespace

std::optional<std::int32_t> FolderSizeByFind(CopyRun& run, std::string_view folder) {
  std::string path(folder);
  AddBackslash(path);
  const host::Listing listing = host::ListFolder(path, "*.*");
  NoteUncounted(run, path, listing.status);
  std::int32_t total = 0;
  for (const host::Entry& entry : listing.value) {
    const std::optional<std::int32_t> size = CountedSize(run, path, entry);
    if (!size || !AddSize(total, *size) || !LetUserIn(run)) return std::nullopt;
  }
  return total;
}

CopyEnd CopyTreeWithProgress(CopyRun& run, std::string_view source, std::string_view destination) {
  const std::optional<std::int32_t> total = FolderSizeByFind(run, source);
  if (run.is_cancelled) return CopyEnd::kCancelled;
  // A single file between 2 and 4 GB makes the sum negative. A progress bar cannot have a negative maximum.
  if (!total || *total < 0) return TreeTooLarge(run, source);
  if (*total == 0) {
    NoteNothingCopied(run, std::string(source));
    return CopyEnd::kFailed;
  }
  SetTotal(run, *total);
  const bool complete = CopyTreeByFind(run, std::string(source), std::string(destination));
  return complete ? CopyEnd::kComplete : CopyEnd::kFailed;
}

bool CopyTreeByFind(CopyRun& run, std::string source, std::string destination) {
  AddBackslash(source);
  AddBackslash(destination);
  const host::Listing listing = host::ListFolder(source, "*.*");
  if (!CheckOrStop(run.notes, listing.status, source, "could not be listed")) {
    run.user.ShowMessage(
        {"Source folder \"" + ShownFolder(source) + "\" not found.", "Vexa Discwright", host::MessageIcon::kNone});
    return false;
  }
  // The copy goes on after this failure. It stops at the first file that cannot be written into the missing folder.
  run.notes.Check(host::MakeFolders(destination), destination, "could not be created");
  EntryFilter filter(run.notes, source);
  for (const host::Entry& entry : listing.value) {
    if (!CopyEntry(run, filter, entry, source, destination)) return false;
    run.user.DoEvents(0);
  }
  return true;
}

host::Status CopyOneFile(CopyRun& run, const std::string& source_file, const std::string& dest_file) {
  return host::CopyFileWithProgress(source_file, dest_file, [&run](host::CopyEvent event, std::int64_t transferred) {
    return CopyProgress(run, event, transferred);
  });
}

bool CopyProgress(CopyRun& run, host::CopyEvent event, std::int64_t transferred) {
  if (event == host::CopyEvent::kStreamSwitch) {
    run.start_value = run.progress.ShownBytes();
  } else {
    ShowBytes(run, run.start_value + transferred);
  }
  run.user.DoEvents(0);
  return true;
}

}  // namespace discwright::util
