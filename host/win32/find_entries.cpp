// Lists folders, and marks the names under which no file can be opened.
#include "host/win32/find_entries.h"

#include <algorithm>
#include <cstring>

#include "base/paths.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/win32/errors.h"
#include "host/win32/native_path.h"

namespace discwright::host {
namespace {

// Owns a search handle of the system, and closes it.
class Search {
 public:
  Search(const std::string& pattern, WIN32_FIND_DATAA& first) : handle_(FindFirstFileA(pattern.c_str(), &first)) {}
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;
  ~Search() {
    if (started()) FindClose(handle_);
  }
  bool started() const { return handle_ != INVALID_HANDLE_VALUE; }
  bool Next(WIN32_FIND_DATAA& next) { return FindNextFileA(handle_, &next) != 0; }

 private:
  HANDLE handle_;
};

// For a character that the code page lacks, the system may return a similar one, even one that no name can contain.
// When a name ends in a dot or a blank, the system opens the name without it.
std::string NameWithMarks(const char* listed) {
  std::string name = TextOfCodePage(listed);
  for (char& character : name) {
    const bool is_control = static_cast<unsigned char>(character) < ' ';
    if (is_control || std::strchr("\"*/:<>\\|", character) != nullptr) character = '?';
  }
  if (name.ends_with('.') || name.ends_with(' ')) name += '?';
  return name;
}

// When names of entries differ only in letter case, at most one entry can be opened under each listed name.
void MarkAllButOne(std::string_view folder, std::vector<FoundEntry>::iterator first,
                   std::vector<FoundEntry>::iterator last) {
  std::vector<std::string> taken;
  for (auto entry = first; entry != last; ++entry) {
    if (!entry->IsReachable()) continue;
    WIN32_FIND_DATAA data{};
    const AnsiPath path(base::InFolder(folder, entry->name));
    const bool is_new = std::find(taken.begin(), taken.end(), entry->name) == taken.end();
    if (is_new && path.status.ok() && FindOne(path.native, data) && TextOfCodePage(data.cFileName) == entry->name) {
      taken.push_back(entry->name);
      entry->data = data;  // the listing may have had the data of the other one
    } else {
      entry->name += '?';
    }
  }
}

void MarkEqualNames(std::string_view folder, std::vector<FoundEntry>& entries) {
  const auto folded_less = [](const FoundEntry& a, const FoundEntry& b) { return FoldCase(a.name) < FoldCase(b.name); };
  std::sort(entries.begin(), entries.end(), folded_less);
  for (auto first = entries.begin(); first != entries.end();) {
    const auto last =
        std::find_if(first + 1, entries.end(), [&](const FoundEntry& other) { return folded_less(*first, other); });
    if (last - first > 1) MarkAllButOne(folder, first, last);
    first = last;
  }
}

Status WhyNotListed(const AnsiPath& folder) {
  const DWORD error = GetLastError();
  const DWORD attributes = GetFileAttributesA(folder.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return StatusOf(error);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return StatusOf(ERROR_DIRECTORY);
  // The root of an empty drive has no entries at all, not even "." and "..".
  return error == ERROR_FILE_NOT_FOUND ? Status::Success() : StatusOf(error);
}

}  // namespace

Result<std::vector<FoundEntry>> FindEntries(std::string_view folder) {
  const AnsiPath path(folder);
  if (!path.status.ok()) return path.status;
  // InFolder makes the pattern, because a root keeps its own separator, and "C:" is the current folder of its drive.
  const std::string pattern = *CodePageBytes(base::InFolder(path.core, "*.*"));
  if (pattern.size() >= MAX_PATH) return StatusOf(ERROR_FILENAME_EXCED_RANGE);
  std::vector<FoundEntry> entries;
  FoundEntry entry;
  Search search(pattern, entry.data);
  if (!search.started()) return WhyNotListed(path);
  do {
    entry.name = NameWithMarks(entry.data.cFileName);
    const std::string_view listed = entry.data.cFileName;
    if (listed != "." && listed != "..") entries.push_back(entry);
  } while (search.Next(entry.data));
  const DWORD error = GetLastError();
  if (error != ERROR_NO_MORE_FILES) return StatusOf(error);
  MarkEqualNames(path.core, entries);
  std::sort(entries.begin(), entries.end(), [](const FoundEntry& a, const FoundEntry& b) { return a.name < b.name; });
  return entries;
}

}  // namespace discwright::host
