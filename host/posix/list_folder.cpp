// Lists folders.
#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "base/wildcard.h"
#include "host/files.h"
#include "host/posix/case_lookup.h"
#include "host/posix/entry.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"
#include "host/posix/unique_fd.h"
#include "host/system.h"

namespace discwright::host {
namespace {

bool IsSelfOrParent(std::string_view name) { return name == "." || name == ".."; }

// A pattern as it is matched: nothing to match against when it takes every name.
std::string FoldedPattern(std::string_view pattern) {
  return pattern == "*.*" || pattern == "*" ? std::string() : FoldCase(pattern);
}

Status ReadEntries(DIR* stream, const std::string& folder, const std::string& pattern, std::vector<Entry>& entries) {
  EntryReader reader(dirfd(stream), folder);
  for (;;) {
    errno = 0;
    const dirent* found = readdir(stream);
    if (found == nullptr) return errno == 0 ? Status::Success() : LastFailure();
    if (IsSelfOrParent(found->d_name)) continue;
    if (!pattern.empty() && !base::MatchesWildcard(FoldCase(CoreName(found->d_name)), pattern)) continue;
    std::optional<Entry> entry = reader.Read(found->d_name, found->d_type);
    if (entry) entries.push_back(std::move(*entry));
  }
}

}  // namespace

Listing ListFolder(std::string_view folder, std::string_view pattern) {
  Listing listing;
  const std::string native = RealPath(folder);
  UniqueFd fd(open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(fd.valid() ? fdopendir(fd.get()) : nullptr, closedir);
  if (stream == nullptr) {
    listing.status = LastFailure();
    return listing;
  }
  fd.Release();
  listing.status = ReadEntries(stream.get(), native, FoldedPattern(pattern), listing.entries);
  if (!listing.status.ok()) listing.entries.clear();
  std::sort(listing.entries.begin(), listing.entries.end(),
            [](const Entry& a, const Entry& b) { return a.name < b.name; });
  return listing;
}

std::optional<Entry> Look(std::string_view path) {
  const std::string native = RealPath(path);
  if (native.empty()) return std::nullopt;
  std::optional<Entry> entry = EntryReader(AT_FDCWD, NativeFolder(native)).Read(native.c_str(), DT_UNKNOWN);
  return entry && entry->broken ? std::nullopt : entry;
}

}  // namespace discwright::host
