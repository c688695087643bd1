// Creates hard links, and describes the files that may have some.
#include "host/hard_links.h"

#include <windows.h>

#include <functional>

#include "base/paths.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/find_entries.h"
#include "host/win32/new_file.h"
#include "host/win32/regular_file.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

using LinkCall = decltype(CreateHardLinkA);

// Returns null where there are no hard links: on Windows 95, 98 and Me, and on NT before 2000.
LinkCall* FindLinkCall() {
  static LinkCall* const call = IsNtFamily() ? NewerCall<LinkCall>("kernel32.dll", "CreateHardLinkA") : nullptr;
  return call;
}

FileFacts ToFacts(const NativeFacts& facts) {
  return {facts.volume, facts.number, static_cast<std::int64_t>(facts.size), facts.ModifiedNanoseconds(), facts.links};
}

bool IsListed(const FoundEntry& found) { return !IsLink(found.data) && !base::IsDevicePath(found.name); }

// A file that cannot be opened is listed with the little that is known of it, as a separate file on the volume of its
// folder. Reading it later reports the reason.
NamedFacts Describe(std::string_view folder, const FoundEntry& found, FileFacts unknown) {
  NamedFacts entry{found.name, found.IsFolder(), {}};
  if (entry.is_folder) return entry;
  const Result<NativeFacts> facts = FactsOfPath(AnsiPath(base::InFolder(folder, found.name)), Links::kTake);
  if (facts.ok()) {
    entry.facts = ToFacts(facts.value);
  } else {
    entry.facts = unknown;
    entry.facts.size = static_cast<std::int64_t>(SizeOf(found.data));
  }
  return entry;
}

// Whether links can be made in the folder of `fresh`. A refusal may be due to this one file (it is protected or has
// another owner) or to the file system. Only a test with new files shows which.
bool FolderTakesLinks(const AnsiPath& fresh) {
  const AnsiPath probe(TemporaryName(fresh));
  const RegularFile file = OpenRegular(probe, GENERIC_WRITE, CREATE_NEW, ShareEverything());
  if (!file.status.ok()) return true;  // unknown; the failure of the file itself is the better message
  const AnsiPath second(TemporaryName(fresh));
  const bool takes = FindLinkCall()(second.c_str(), probe.c_str(), nullptr) != 0;
  if (takes) DeleteFileA(second.c_str());
  DeleteFileA(probe.c_str());
  return takes;
}

LinkEnd EndOf(DWORD error, const AnsiPath& fresh) {
  switch (error) {
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return LinkEnd::kNameTaken;
    case ERROR_TOO_MANY_LINKS:
      return LinkEnd::kTooManyLinks;
    case ERROR_NOT_SAME_DEVICE:
      return LinkEnd::kOtherVolume;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return LinkEnd::kFailed;
    default:
      return FolderTakesLinks(fresh) ? LinkEnd::kFailed : LinkEnd::kUnsupported;
  }
}

LinkAnswer Failed(Status status) { return {LinkEnd::kFailed, std::move(status)}; }

}  // namespace

Result<std::vector<NamedFacts>> ListFacts(std::string_view folder) {
  const Result<std::vector<FoundEntry>> found = FindEntries(folder);
  if (!found.ok()) return found.status;
  const std::uint64_t volume = FactsOfPath(AnsiPath(folder), Links::kFollow).value.volume;
  std::vector<NamedFacts> entries;
  for (const FoundEntry& entry : found.value) {
    // This is a number that no file is likely to have.
    const std::string place = std::string(folder) + "\\" + std::to_string(entries.size());
    const FileFacts unknown{volume, std::hash<std::string>()(place)};
    if (IsListed(entry)) entries.push_back(Describe(folder, entry, unknown));
  }
  return entries;
}

std::optional<FileFacts> FactsOf(std::string_view path) {
  const AnsiPath ansi(path);
  const Result<NativeFacts> facts = FactsOfPath(ansi, Links::kTake);
  if (!facts.ok() || facts.value.IsFolder() || IsLink(ansi)) return std::nullopt;
  return ToFacts(facts.value);
}

Result<std::unique_ptr<BinaryFile>> OpenUnchanged(std::string_view path, const FileFacts& facts) {
  const AnsiPath ansi(path);
  const std::optional<FileFacts> named = FactsOf(path);
  const DWORD flags = IsNtFamily() ? FILE_FLAG_OPEN_REPARSE_POINT : 0;
  RegularFile file = OpenRegular(ansi, GENERIC_READ, OPEN_EXISTING, ShareEverything(), flags);
  if (!file.status.ok()) return file.status;
  if (named) {
    // On the NT family the open file itself is asked, because another file may have just taken its name.
    const FileFacts now = IsNtFamily() ? ToFacts(FactsOfHandle(file.handle.get()).value) : *named;
    if (now.IsUnchanged(facts)) return WrapBinaryFile(std::move(file.handle));
  }
  return Status::Failure(ErrorClass::kOther, "The file has changed");
}

LinkAnswer MakeHardLink(std::string_view existing, std::string_view fresh) {
  const AnsiPath from(existing);
  const AnsiPath to(fresh);
  if (!from.status.ok()) return Failed(from.status);
  if (!to.status.ok()) return Failed(to.status);
  if (FindLinkCall() == nullptr) return {LinkEnd::kUnsupported, StatusOf(ERROR_NOT_SUPPORTED)};
  if (FindLinkCall()(to.c_str(), from.c_str(), nullptr) != 0) return {};
  const DWORD error = GetLastError();
  return {EndOf(error, to), StatusOf(error)};
}

Status MoveOver(std::string_view from, std::string_view to) {
  const AnsiPath source(from);
  const AnsiPath target(to);
  for (const AnsiPath* path : {&source, &target}) {
    if (!path->status.ok()) return path->status;
    if (!IsThere(*path)) return LastFailure();
  }
  return MoveOver(source, target);
}

bool RemoveSpareName(std::string_view path) {
  const std::optional<FileFacts> facts = FactsOf(path);
  return facts && facts->links > 1 && DeleteForSure(AnsiPath(path)).ok();
}

}  // namespace discwright::host
