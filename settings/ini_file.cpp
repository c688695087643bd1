// INIFile: reads and writes single keys of an INI file.
#include "settings/ini_file.h"

#include <charconv>
#include <limits>

#include "base/ini_text.h"
#include "base/utf8.h"
#include "host/native_text.h"
#include "host/profile.h"
#include "util/paths.h"

namespace discwright::settings {

namespace {

// Earlier versions read values into a buffer of 100 characters, one of which is the terminating NUL.
constexpr std::size_t kLongestValue = 99;

std::string Cut(std::string_view value) { return util::Trim(base::FirstCharacters(value, kLongestValue)); }

}  // namespace

void INIFile::CreateIni(std::string_view folder, std::string_view file_name) {
  while (folder.ends_with('\\')) folder.remove_suffix(1);
  while (file_name.starts_with('\\')) file_name.remove_prefix(1);
  FileName = std::string(folder).append("\\").append(file_name);
}

host::Status INIFile::SetINIKey(std::string_view section, std::string_view key, std::string_view value) const {
  return host::WriteProfileValue(FileName, section, key, base::WithQuotesKept(value));
}

std::string INIFile::GetINIKey(std::string_view section, std::string_view key) const {
  return Cut(host::ReadProfileValue(FileName, section, key).value.value_or(""));
}

host::Result<std::string> INIFile::ReadINIKey(util::Notes& notes, std::string_view section,
                                              std::string_view key) const {
  const host::ProfileValue read = host::ReadProfileValue(FileName, section, key);
  if (!notes.Check(read.status, FileName, "could not be read")) return read.status;
  const std::string value = read.value.value_or("");
  if (IsCutWhenRead(value)) {
    notes.Add(FileName, "The value of " + std::string(key) + " in section " + std::string(section) +
                            " is longer than 99 characters; the rest is ignored.");
  }
  return Cut(value);
}

bool IsCutWhenRead(std::string_view value) { return util::Trim(value) != Cut(value); }

int WholeNumber(std::string_view value) {
  std::string text = util::Trim(value);
  if (text.starts_with('+') && !text.starts_with("+-")) text.erase(0, 1);
  int number = 0;
  const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc::result_out_of_range) return number;
  return text.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

}  // namespace discwright::settings
