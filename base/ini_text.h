// Reads and changes text in the INI profile format: sections in square brackets, with lines such as "Key=Value".
// FindIniValue(text, "Section", "Key") reads a value, WithIniValue returns the text with another value. Letter case
// does not matter in the names of sections and keys.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::base {

struct IniKey {
  std::string key;
  std::string value;  // without the blanks and the pair of single or double quotes around it
};

// The value of the first key `key` in the first section `section`; nothing when there is no such key.
std::optional<std::string> FindIniValue(std::string_view text, std::string_view section, std::string_view key);

// All keys of the first section `section`, in their order, without comments (lines that begin with ";").
std::vector<IniKey> IniSection(std::string_view text, std::string_view section);

enum class IniLineKind { kBlank, kComment, kSection, kKey, kOther };

struct IniLine {
  IniLineKind kind = IniLineKind::kOther;
  std::string_view name;   // the name of the section or key; for other lines, the line without blanks around it
  std::string_view value;  // the value of a key, as in IniKey
};

// All lines of a text in their order. The views point into `text`. The other functions of this header ignore every line
// that is neither a section nor a key.
std::vector<IniLine> IniLines(std::string_view text);

// Returns the text with a new value for the key. Adds the key, or the section and the key, when it is missing; new
// lines end in CR LF. Everything else stays as it is.
std::string WithIniValue(std::string_view text, std::string_view section, std::string_view key, std::string_view value);

// Returns a value that can be stored so that FindIniValue returns it unchanged. FindIniValue removes one pair of
// quotes. So a value that has quotes at both ends gets a second pair.
std::string WithQuotesKept(std::string_view value);

// Returns the value as one line: each CR, LF and NUL becomes a blank.
std::string OneLine(std::string_view value);

}  // namespace discwright::base
