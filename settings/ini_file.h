// Reads and writes single keys of an INI file. Each call goes to the disk: INIFile("C:\\a.ini").GetINIKey("Main", "x").
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "host/status.h"
#include "util/notes.h"

namespace discwright::settings {

// Letter case does not matter in the names of sections and keys. A write keeps the order, the comments and all unknown
// text of the file. Arguments and results are UTF-8. Files are in the code page of the system, or in UTF-8 with a byte
// order mark when a value needs that; new lines end in CR LF.
class INIFile {
 public:
  INIFile() = default;
  explicit INIFile(std::string file_name) : FileName(std::move(file_name)) {}

  std::string FileName;  // the full path; assigning it does nothing on the disk

  // Sets FileName to the folder and the file name, joined by exactly one backslash. Creates no file.
  void CreateIni(std::string_view folder, std::string_view file_name);

  // Replaces the value of the key. Adds the key, the section or the file if it is missing. A CR, LF or NUL in the value
  // becomes a blank. GetINIKey removes one pair of quotes, so a value in quotes is written with a second pair.
  host::Status SetINIKey(std::string_view section, std::string_view key, std::string_view value) const;

  // The value without blanks and one pair of quotes around it, cut at 99 characters. Key files and sessions of earlier
  // versions were read with this limit. Empty when the value is missing or cannot be read.
  std::string GetINIKey(std::string_view section, std::string_view key) const;

  // The same value for callers that must not take a value that cannot be read for an empty one. A failed read is noted,
  // and so is a value that was cut. A missing value is not a failure.
  host::Result<std::string> ReadINIKey(util::Notes& notes, std::string_view section, std::string_view key) const;
};

// Whether GetINIKey would cut this value.
bool IsCutWhenRead(std::string_view value);

// The number at the start of a value, with an optional sign. 0 when the value does not start with a number; the nearest
// int when the number is too large.
int WholeNumber(std::string_view value);

}  // namespace discwright::settings
