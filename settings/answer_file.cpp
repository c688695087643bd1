// Made in memory and written once, so that no half-filled answer file is left for Setup.
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

// The text as it is once it has been through Windows-1252; `what` names it in the note on what is lost.
std::string Narrowed(util::Notes& notes, const std::string& text, const std::string& place, const std::string& what) {
  std::string narrowed = base::FromWindows1252(Windows1252Bytes(text));
  if (narrowed != text) {
    notes.Add(place, what + " has characters that Windows Setup cannot read; they became question marks.");
  }
  return narrowed;
}

// Outside quotes Setup takes ";" for the start of a comment, "," for a separator, "%" for that of a string's name and
// "\" at a line's end for its continuation.
std::string AsSetupReadsIt(const std::string& value) {
  constexpr std::string_view blanks = " \t";
  if (value.empty()) return value;
  const bool has_blank_end =
      blanks.find(value.front()) != std::string_view::npos || blanks.find(value.back()) != std::string_view::npos;
  const bool is_plain = value.find_first_of(";,=%\"") == std::string::npos && !has_blank_end &&
                        !value.ends_with('\\') && base::WithQuotesKept(value) == value;
  return is_plain ? value : '"' + value + '"';
}

std::string ValueOf(util::Notes& notes, const AnswerFile& answer_file, const Answer& answer) {
  if (answer.key_file_key == nullptr) return answer.value;
  const INIFile& key_file = answer_file.key_file;
  const std::string value = key_file.GetINIKey(notes, answer_file.key_section, answer.key_file_key);
  return Narrowed(notes, value, key_file.FileName, answer.key_file_key);
}

}  // namespace

bool HasAnswers(util::Notes& notes, const std::string& key_file) {
  if (util::FileExists(key_file)) return true;
  notes.Add(key_file, "is missing or cannot be read, and Windows Setup gets no answers from the CD");
  return false;
}

bool DeleteAnswerFile(util::Notes& notes, const std::string& file) {
  if (!util::FileExists(file)) return true;
  host::ClearAttributes(file);  // where that fails, deleting does and says why
  return notes.Check(host::RemoveFile(file), file, "could not be deleted");
}

bool WriteAnswerFile(util::Notes& notes, const AnswerFile& answer_file) {
  const std::string& key_file = answer_file.key_file.FileName;
  if (!notes.Check(answer_file.key_file.Readable(), key_file, "could not be read")) return false;
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
              "begins with the mark of UTF-8, which Windows Setup takes for a part of its first line; "
              "please save it as plain text");
  }
  for (const Answer& answer : answer_file.answers) {
    const std::string value = AsSetupReadsIt(ValueOf(notes, answer_file, answer));
    bytes = base::WithIniValue(bytes, answer.section, answer.key, Windows1252Bytes(value));
  }
  const host::Status written = host::WriteWholeFile(answer_file.file, bytes);
  return notes.Check(written, answer_file.file, "could not be written");
}

}  // namespace discwright::settings
