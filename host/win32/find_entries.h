// Lists folders through the system, and marks the names under which no file can be opened. FindEntries is the only loop
// over FindNextFile; all other code calls it.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "host/status.h"
#include "host/win32/file_facts.h"

namespace discwright::host {

struct FoundEntry {
  // The name in UTF-8. It contains a "?" when the file cannot be opened by its name: the code page lacks a character of
  // it, or the system would open another file or a file of another name.
  std::string name;
  WIN32_FIND_DATAA data{};

  bool IsReachable() const { return name.find('?') == name.npos; }
  bool IsFolder() const { return (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
};

// All entries of a folder except "." and "..", sorted by the bytes of their names.
Result<std::vector<FoundEntry>> FindEntries(std::string_view folder);

}  // namespace discwright::host
