// Answer files of Windows Setup: a template with the answers of a key file in it.
#pragma once

#include <span>
#include <string>

#include "settings/ini_file.h"
#include "util/notes.h"

namespace discwright::settings {

// One value that is written into the template.
struct Answer {
  const char* section = "";
  const char* key = "";
  const char* key_file_key = nullptr;  // where the value comes from; null: it is `value`
  const char* value = "";
};

struct AnswerFile {
  std::string file;  // what is written
  std::string template_file;
  INIFile key_file;
  const char* key_section = "";
  std::span<const Answer> answers;  // in the order in which they are written
};

// Whether there is a key file to take answers from; notes that there is none.
bool HasAnswers(util::Notes& notes, const std::string& key_file);

// Deletes an answer file, read-only or not; a file that is not there is a success. False, with a note, when it stays.
bool DeleteAnswerFile(util::Notes& notes, const std::string& file);

// Writes the file as a whole: the template's bytes as they are, with the values in Windows-1252, which is what Setup
// reads, and CR LF behind new lines. A character that Windows-1252 lacks becomes "?", a value is cut at 99 characters;
// both are noted, and so is a template with the mark of UTF-8. One in UTF-16 is noted and gives no file. False, with a
// note and without a file, when template or key file cannot be read or the file cannot be written.
bool WriteAnswerFile(util::Notes& notes, const AnswerFile& answer_file);

}  // namespace discwright::settings
