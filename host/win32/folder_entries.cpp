// Tells whether the entries of a folder are files, folders or devices, and follows links.
#include "host/folder_entries.h"

#include "base/paths.h"
#include "host/native_text.h"
#include "host/win32/find_entries.h"
#include "host/win32/native_path.h"

namespace discwright::host {
namespace {

void SetKind(Entry& entry, DWORD attributes, std::uint64_t size) {
  entry.kind = base::IsDevicePath(entry.name)                 ? EntryKind::kSpecial
               : (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::kFolder
                                                              : EntryKind::kFile;
  if (entry.kind == EntryKind::kFile) entry.size = static_cast<std::int64_t>(size);
}

// Describes the entry at `path`, which is listed under `name`.
Entry Describe(const std::string& name, const WIN32_FIND_DATAA& data, const AnsiPath& path) {
  Entry entry;
  entry.name = name;
  entry.is_link = IsLink(data);
  if (!entry.is_link) {
    SetKind(entry, data.dwFileAttributes, SizeOf(data));
    return entry;
  }
  const Result<NativeFacts> target = FactsOfPath(path, Links::kFollow);
  entry.broken = target.status.error == ErrorClass::kNotFound;
  if (!target.ok() && !entry.broken) entry.problem = target.status;
  if (target.ok()) SetKind(entry, target.value.attributes, target.value.size);
  return entry;
}

}  // namespace

Listing ReadEntries(std::string_view folder, const std::function<bool(const std::string& name)>& is_wanted) {
  const Result<std::vector<FoundEntry>> found = FindEntries(folder);
  if (!found.ok()) return found.status;
  std::vector<Entry> entries;
  for (const FoundEntry& entry : found.value) {
    if (!is_wanted(entry.name)) continue;
    entries.push_back(Describe(entry.name, entry.data, AnsiPath(base::InFolder(folder, entry.name))));
  }
  return entries;
}

Result<Entry> ReadEntry(std::string_view path) {
  const AnsiPath ansi(path);
  if (!ansi.status.ok()) return ansi.status;
  const std::string name(base::NameOf(ansi.core));
  if (base::IsDevicePath(ansi.core)) return Entry{name, EntryKind::kSpecial};
  WIN32_FIND_DATAA data{};
  if (FindOne(ansi.native, data)) return Describe(TextOfCodePage(data.cFileName), data, ansi);
  // The root of a drive is in no listing.
  const Result<NativeFacts> facts = FactsOfPath(ansi, Links::kFollow);
  if (!facts.ok()) return facts.status;
  Entry root;
  root.name = name;
  SetKind(root, facts.value.attributes, facts.value.size);
  return root;
}

}  // namespace discwright::host
