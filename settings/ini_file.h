// Single keys of a classic INI profile file, straight from and to the disk.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace discwright::settings {

// Section and key names ignore letter case. Order, comments and unknown text survive a write. Files are CR LF and in
// the code page on disk (UTF-8 with a mark where that cannot hold a value); text here is UTF-8.
// No operation reports an error: what cannot be read is empty, what cannot be written is lost.
class INIFile {
 public:
  INIFile() = default;
  explicit INIFile(std::string file_name) : FileName(std::move(file_name)) {}

  std::string FileName;  // full path; assigning it touches nothing on disk

  // FileName becomes folder and file name joined by exactly one backslash. Creates nothing.
  void CreateIni(std::string_view folder, std::string_view file_name);

  // Replaces the key's value in place, or appends key, section or file. A CR, LF or NUL in it becomes a blank.
  void SetINIKey(std::string_view section, std::string_view key, std::string_view value) const;

  // The trimmed value, without one pair of double quotes around it, cut at 99 characters; empty when there is none.
  std::string GetINIKey(std::string_view section, std::string_view key) const;

  // Whether the value is longer than what GetINIKey gives of it.
  bool IsCut(std::string_view section, std::string_view key) const;

 private:
  std::string WholeValue(std::string_view section, std::string_view key) const;
};

// The number that a value starts with, after an optional sign; 0 when there is none, the nearest int when too large.
int WholeNumber(std::string_view value);

}  // namespace discwright::settings
