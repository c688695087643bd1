// The copy engine of Windows 95, 98 and Me. It copies files in chunks of 16384 bytes, so that the progress bar moves
// while a large file is copied.
#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "util/copy_engines.h"
#include "util/copy_entries.h"
#include "util/paths.h"

namespace discwright::util {

namespace {

constexpr std::int64_t kChunk = 16384;

std::optional<std::int32_t> CountedSize(CopyRun& run, const std::string& folder, const host::Entry& entry) {
  const host::Status status = WhyNotCopied(entry);
  NoteUncounted(run, folder + entry.name, status);
  if (!status.ok() || entry.kind == host::EntryKind::kSpecial) return 0;
  if (entry.kind == host::EntryKind::kFolder) return FolderSizeByDir(run, folder + entry.name + "\\");
  std::int32_t size = 0;
  return AddSize(size, entry.size) ? std::optional(size) : std::nullopt;
}

bool CopyEntry(CopyRun& run, EntryFilter& filter, const host::Entry& entry, const std::string& source,
               const std::string& destination) {
  const Verdict verdict = filter.Decide(entry);
  if (verdict != Verdict::kCopy) return verdict == Verdict::kSkip;
  const std::string from = source + entry.name;
  const std::string to = destination + NameInCopy(entry.name, run.names);
  if (entry.kind == host::EntryKind::kFolder) {
    return IsOwnDestination(run, from) || CopyTreeChunked(run, from + "\\", to + "\\");
  }
  run.progress.ShowFile(entry.name);
  return CheckOrStop(run.notes, CopyFileChunked(run, from, to), from, "could not be copied", Wording::kWithShortText);
}

// Positions count from 1, and the bar shows the position. Each file therefore adds one byte more than its length to the
// bar. Kept as it has always been.
host::Status CopyChunks(CopyRun& run, host::BinaryFile& from, host::BinaryFile& to, std::int64_t length) {
  const std::int64_t start = run.progress.ShownBytes();
  std::vector<std::byte> chunk(static_cast<std::size_t>(std::min(length, kChunk)));
  std::int64_t position = 1;
  bool is_last = false;
  while (!is_last) {
    const std::int64_t remaining = length + 1 - position;
    is_last = remaining < kChunk;
    const std::span<std::byte> bytes(chunk.data(), static_cast<std::size_t>(std::min(remaining, kChunk)));
    if (host::Status status = from.ReadAt(position - 1, bytes); !status.ok()) return status;
    if (host::Status status = to.WriteAt(position - 1, bytes); !status.ok()) return status;
    position += static_cast<std::int64_t>(bytes.size());
    ShowBytes(run, start + position);
  }
  return host::Status::Success();
}

// Closes both files before it returns, because CopyFileChunked handles the user's events after this.
host::Status CopyOpened(CopyRun& run, const std::string& source_file, const std::string& dest_file) {
  const auto from = host::OpenBinary(source_file, host::OpenMode::kRead);
  if (!from.ok()) return from.status;
  const auto to = host::OpenBinary(dest_file, host::OpenMode::kReadWrite);
  if (!to.ok()) return to.status;
  const host::Result<std::int64_t> length = from.value->Length();
  if (!length.ok()) return length.status;
  return CopyChunks(run, *from.value, *to.value, length.value);
}

}  // namespace

std::optional<std::int32_t> FolderSizeByDir(CopyRun& run, std::string_view folder) {
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

bool CopyTreeChunked(CopyRun& run, std::string source, std::string destination) {
  AddBackslash(source);
  AddBackslash(destination);
  host::Listing listing;
  if (!EnterFolder(run.notes, source, destination, listing)) return false;
  EntryFilter filter(run.notes, source);
  for (const bool folders : {false, true}) {
    for (const host::Entry& entry : listing.value) {
      if ((entry.kind == host::EntryKind::kFolder) != folders) continue;
      if (!CopyEntry(run, filter, entry, source, destination)) return false;
      if (folders) run.user.DoEvents(0);
    }
  }
  return true;
}

host::Status CopyFileChunked(CopyRun& run, const std::string& source_file, const std::string& dest_file) {
  host::Status status = CopyOpened(run, source_file, dest_file);
  run.user.DoEvents(0);
  return status;
}

}  // namespace discwright::util
