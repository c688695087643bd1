// The classic INI profile format as text: sections in square brackets, keys, equals signs, values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::base {

struct IniKey {
  std::string key;
  std::string value;  // trimmed, without one pair of quotes, single or double, around it
};

// The value of the first such key in the first such section, names in any letter case; nothing when there is none.
std::optional<std::string> FindIniValue(std::string_view text, std::string_view section, std::string_view key);

// All keys of the first such section, in order; comments (lines that begin with ";") left out.
std::vector<IniKey> IniSection(std::string_view text, std::string_view section);

enum class IniLineKind { kBlank, kComment, kSection, kKey, kOther };

struct IniLine {
  IniLineKind kind = IniLineKind::kOther;
  std::string_view name;   // of the section or the key, without blanks; other lines: the text without blanks
  std::string_view value;  // of a key: as in IniKey
};

// Every line of a text in order, parts of the text. The functions of this header pass over what is neither a section
// nor a key.
std::vector<IniLine> IniLines(std::string_view text);

// The text with the key's value replaced in place, or key or section appended (CR LF). All else stays as it is.
std::string WithIniValue(std::string_view text, std::string_view section, std::string_view key, std::string_view value);

// The value as it is stored to be read as it is: in double quotes where reading would take a pair of its own quotes.
std::string WithQuotesKept(std::string_view value);

// The value as it can stand on a line: each CR, LF and NUL becomes a blank.
std::string OneLine(std::string_view value);

}  // namespace discwright::base
