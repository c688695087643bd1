// Splits INI text into lines, and finds and replaces values in it.
#include "base/ini_text.h"

#include <algorithm>

namespace discwright::base {

namespace {

using Lines = std::vector<std::string_view>;  // each with its line end

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineEnd = "\r\n";

struct KeyParts {
  std::string_view key;
  std::string_view value;  // with its quotes
};

// An empty result still points into `text`, so that its position in the text is known.
std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return text.substr(text.size());
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Expects a value without blanks around it. Treats quotes like the profile functions of Windows.
bool IsInQuotes(std::string_view value) {
  return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
}

std::string_view StripQuotes(std::string_view value) {
  return IsInQuotes(value) ? value.substr(1, value.size() - 2) : value;
}

// A line ends with LF, with CR LF or, in texts of some editors, with CR alone.
Lines SplitLines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    std::size_t length = std::min(text.find_first_of(kLineEnd), text.size() - 1) + 1;
    if (text.substr(length - 1).starts_with(kLineEnd)) ++length;
    lines.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return lines;
}

std::string_view WithoutLineEnd(std::string_view line) { return line.substr(0, line.find_last_not_of(kLineEnd) + 1); }

std::optional<std::string_view> SectionName(std::string_view line) {
  const std::string_view content = TrimBlanks(WithoutLineEnd(line));
  const std::size_t end = content.find(']');
  if (!content.starts_with('[') || end == std::string_view::npos) return std::nullopt;
  return TrimBlanks(content.substr(1, end - 1));
}

std::optional<KeyParts> ParseKey(std::string_view line) {
  const std::string_view content = WithoutLineEnd(line);
  const std::size_t equals = content.find('=');
  if (equals == std::string_view::npos || TrimBlanks(content).starts_with(';')) return std::nullopt;
  return KeyParts{TrimBlanks(content.substr(0, equals)), TrimBlanks(content.substr(equals + 1))};
}

char LowerAscii(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter; }

// All names that the program looks up are ASCII, so only ASCII letters are folded.
bool SameName(std::string_view a, std::string_view b) { return std::ranges::equal(a, b, {}, LowerAscii, LowerAscii); }

Lines::const_iterator FindSection(const Lines& lines, std::string_view section) {
  return std::find_if(lines.begin(), lines.end(), [&](std::string_view line) {
    const std::optional<std::string_view> name = SectionName(line);
    return name && SameName(*name, section);
  });
}

// Returns the line after the last line of a section. `header` is the line with the name of the section.
Lines::const_iterator SectionEnd(const Lines& lines, Lines::const_iterator header) {
  return std::find_if(header + 1, lines.end(), [](std::string_view line) { return SectionName(line).has_value(); });
}

IniLine KindOfLine(std::string_view line) {
  const std::string_view content = TrimBlanks(WithoutLineEnd(line));
  if (content.empty()) return {IniLineKind::kBlank, content, {}};
  if (content.starts_with(';')) return {IniLineKind::kComment, content, {}};
  if (const std::optional<std::string_view> section = SectionName(line)) return {IniLineKind::kSection, *section, {}};
  const std::optional<KeyParts> parts = ParseKey(line);
  if (parts && !parts->key.empty()) return {IniLineKind::kKey, parts->key, StripQuotes(parts->value)};
  return {IniLineKind::kOther, content, {}};
}

std::string WithInsertedAt(std::string_view text, std::size_t position, std::string_view lines) {
  std::string result(text.substr(0, position));
  if (!result.empty() && kLineEnd.find(result.back()) == std::string_view::npos) result += kLineEnd;
  return result.append(lines).append(text.substr(position));
}

}  // namespace

std::optional<std::string> FindIniValue(std::string_view text, std::string_view section, std::string_view key) {
  const std::vector<IniKey> keys = IniSection(text, section);
  const auto found = std::find_if(keys.begin(), keys.end(), [&](const IniKey& ini) { return SameName(ini.key, key); });
  return found == keys.end() ? std::nullopt : std::optional(found->value);
}

std::vector<IniKey> IniSection(std::string_view text, std::string_view section) {
  std::vector<IniKey> keys;
  const Lines lines = SplitLines(text);
  const auto header = FindSection(lines, section);
  if (header == lines.end()) return keys;
  std::for_each(header + 1, SectionEnd(lines, header), [&](std::string_view line) {
    const std::optional<KeyParts> parts = ParseKey(line);
    if (parts) keys.push_back({std::string(parts->key), std::string(StripQuotes(parts->value))});
  });
  return keys;
}

std::vector<IniLine> IniLines(std::string_view text) {
  std::vector<IniLine> lines;
  for (const std::string_view line : SplitLines(text)) lines.push_back(KindOfLine(line));
  return lines;
}

std::string WithIniValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value) {
  const Lines lines = SplitLines(text);
  const std::string new_line = std::string(key).append("=").append(OneLine(value)).append(kLineEnd);
  const auto header = FindSection(lines, section);
  if (header == lines.end()) {
    return WithInsertedAt(text, text.size(), std::string("[").append(section).append("]\r\n").append(new_line));
  }
  auto end = SectionEnd(lines, header);
  for (auto line = header + 1; line != end; ++line) {
    const std::optional<KeyParts> parts = ParseKey(*line);
    if (!parts || !SameName(parts->key, key)) continue;
    const auto position = static_cast<std::size_t>(parts->value.data() - text.data());
    return std::string(text).replace(position, parts->value.size(), OneLine(value));
  }
  // The header is not blank, so this stops there at the latest.
  while (TrimBlanks(WithoutLineEnd(*(end - 1))).empty()) --end;
  const std::string_view last = *(end - 1);
  return WithInsertedAt(text, static_cast<std::size_t>(last.data() - text.data()) + last.size(), new_line);
}

std::string WithQuotesKept(std::string_view value) {
  if (!IsInQuotes(TrimBlanks(OneLine(value)))) return std::string(value);
  return std::string("\"").append(value).append("\"");
}

std::string OneLine(std::string_view value) {
  std::string line(value);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
  return line;
}

}  // namespace discwright::base
