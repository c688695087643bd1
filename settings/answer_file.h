// Makes answer files for Windows Setup: copies a template and sets the answers of a key file in it. Call
// CheckKeyFile, util::RemoveIfExists and WriteAnswerFile in this order.
#pragma once

#include <span>
#include <string>

#include "settings/ini_file.h"
#include "util/notes.h"

namespace discwright::settings {

// One value of an answer file.
struct Answer {
  const char* section = "";
  const char* key = "";
  const char* key_file_key = nullptr;  // the key of the key file whose value is written; null: `value` is written
  const char* value = "";
};

struct AnswerFile {
  std::string file;           // the path of the answer file
  std::string template_file;  // the path of the template
  INIFile key_file;
  const char* key_section = "";     // the section of the key file
  std::span<const Answer> answers;  // in the order in which they are written
};

// Whether the key file exists and can be opened. If not, notes that Windows Setup gets no answers.
bool CheckKeyFile(util::Notes& notes, const std::string& key_file);

// Writes the answer file in one piece. The bytes of the template stay as they are. Values are written in Windows-1252,
// because Setup reads that; new lines end in CR LF.
// Noted: values that are cut at 99 characters, characters that Windows-1252 lacks and that become "?", and a template
// with a byte order mark. A template in UTF-16 is noted too, and no file is written; the result is still true.
// Returns false, with a note, when the template or the key file cannot be read or the answer file cannot be written.
bool WriteAnswerFile(util::Notes& notes, const AnswerFile& answer_file);

}  // namespace discwright::settings
