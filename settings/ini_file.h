// Single keys of a classic INI profile file, straight from and to the disk.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "host/status.h"
#include "util/notes.h"

namespace discwright::settings {

// Section and key names ignore letter case. Order, comments and unknown text survive a write. Files are CR LF and in
// the code page on disk (UTF-8 with a mark where that cannot hold a value); text here is UTF-8.
// What cannot be read is empty.
class INIFile {
 public:
  INIFile() = default;
  explicit INIFile(std::string file_name) : FileName(std::move(file_name)) {}

  std::string FileName;  // full path; assigning it touches nothing on disk

  // FileName becomes folder and file name joined by exactly one backslash. Creates nothing.
  void CreateIni(std::string_view folder, std::string_view file_name);

  // Replaces the key's value in place, or appends key, section or file. A CR, LF or NUL in it becomes a blank. A value
  // that stands in quotes keeps them.
  host::Status SetINIKey(std::string_view section, std::string_view key, std::string_view value) const;

  // The trimmed value, without one pair of quotes around it, cut at 99 characters; empty when there is none.
  std::string GetINIKey(std::string_view section, std::string_view key) const;

  // The same, with a note when the value is longer than what is given of it.
  std::string GetINIKey(util::Notes& notes, std::string_view section, std::string_view key) const;

  // Whether the file can be read at all, and why not.
  host::Status Readable() const;

 private:
  std::string WholeValue(std::string_view section, std::string_view key) const;
};

// Whether GetINIKey gives only the start of this value.
bool IsCutWhenRead(std::string_view value);

// The number that a value starts with, after an optional sign; 0 when there is none, the nearest int when too large.
int WholeNumber(std::string_view value);

}  // namespace discwright::settings
