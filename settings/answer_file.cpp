// Makes answer files for Windows Setup. An answer file is made in memory and written once, so that a failure never
// leaves Setup an incomplete one.
#include "settings/answer_file.h"

#include <algorithm>

#include "base/ini_text.h"
#include "base/utf8.h"
#include "base/windows_1252.h"
#include "host/files.h"
#include "host/native_text.h"
#include "util/paths.h"

namespace discwright::settings {

namespace {

std::string Windows1252Bytes(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const std::size_t length = std::max<std::size_t>(base::FirstUtf8Character(text).length, 1);
    bytes += base::ToWindows1252(text.substr(0, length)).value_or("?");
    text.remove_prefix(length);
  }
  return bytes;
}

// Replaces every character that Windows-1252 lacks by "?", and notes that under the name of the key.
std::string InWindows1252(util::Notes& notes, const std::string& text, const std::string& place,
                          const std::string& key) {
  std::string limited = base::FromWindows1252(Windows1252Bytes(text));
  if (limited != text) {
    notes.Add(place, key + " has characters that Windows Setup cannot read; they became question marks.");
  }
  return limited;
}

// Quotes a value where Setup would misread it. Outside quotes, ";" begins a comment, "," separates values, "%" encloses
// the name of a string, and "\" at the end of a line continues the line.
std::string QuotedForSetup(const std::string& value) {
  constexpr std::string_view blanks = " \t";
  if (value.empty()) return value;
  const bool has_blank_end =
      blanks.find(value.front()) != std::string_view::npos || blanks.find(value.back()) != std::string_view::npos;
  const bool is_plain = value.find_first_of(";,=%\"") == std::string::npos && !has_blank_end &&
                        !value.ends_with('\\') && base::WithQuotesKept(value) == value;
  return is_plain ? value : '"' + value + '"';
}

host::Result<std::string> ValueOf(util::Notes& notes, const AnswerFile& answer_file, const Answer& answer) {
  if (answer.key_file_key == nullptr) return std::string(answer.value);
  const INIFile& key_file = answer_file.key_file;
  const host::Result<std::string> value = key_file.ReadINIKey(notes, answer_file.key_section, answer.key_file_key);
  if (!value.ok()) return value.status;
  return InWindows1252(notes, value.value, key_file.FileName, answer.key_file_key);
}

}  // namespace

bool CheckKeyFile(util::Notes& notes, const std::string& key_file) {
  if (util::FileExists(key_file)) return true;
  notes.Add(key_file, "is missing or cannot be read, and Windows Setup gets no answers from the CD");
  return false;
}

bool WriteAnswerFile(util::Notes& notes, const AnswerFile& answer_file) {
  const std::string& template_file = answer_file.template_file;
  const host::Result<std::string> content = host::ReadWholeFile(template_file);
  if (!notes.Check(content.status, template_file, "could not be read")) return false;
  std::string bytes = content.value;
  if (base::IsUtf16File(bytes)) {
    notes.Add(template_file,
              "is Unicode text of two bytes per character, and Windows Setup gets no answers from the CD; please save "
              "it as plain text");
    return true;
  }
  if (base::HasUtf8Mark(bytes)) {
    notes.Add(template_file,
              "begins with a UTF-8 byte order mark, which Windows Setup takes for a part of the first line; "
              "please save it as plain text");
  }
  for (const Answer& answer : answer_file.answers) {
    const host::Result<std::string> value = ValueOf(notes, answer_file, answer);
    if (!value.ok()) return false;
    bytes = base::WithIniValue(bytes, answer.section, answer.key, Windows1252Bytes(QuotedForSetup(value.value)));
  }
  const host::Status written = host::WriteWholeFile(answer_file.file, bytes);
  return notes.Check(written, answer_file.file, "could not be written");
}

}  // namespace discwright::settings
