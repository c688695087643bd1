// Splits one line of a script into its word and its value.
#include "boot/loader/script_line.h"

#include <cstddef>

#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

bool BeginsComment(std::string_view text) { return !text.empty() && (text.front() == '#' || text.front() == ';'); }

// Returns the place of the first byte `wanted` in `text` from `from` on; the size of `text` if there is none.
std::size_t PlaceOf(std::string_view text, char wanted, std::size_t from) {
  while (from < text.size() && text[from] != wanted) ++from;
  return from;
}

std::string_view WithoutComment(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (BeginsComment(Part(text, i)) && (i == 0 || IsBlank(text[i - 1]))) return Trim(Part(text, 0, i));
  }
  return Trim(text);
}

void TakeQuotedValue(std::string_view text, ScriptLine& line) {
  const std::size_t end = PlaceOf(text, '"', 1);
  line.value = Part(text, 1, end - 1);
  line.has_value = true;
  if (end == text.size()) {
    line.quotes = Quotes::kNotClosed;
    return;
  }
  const std::string_view behind = Trim(Part(text, end + 1));
  if (!behind.empty() && !BeginsComment(behind)) line.quotes = Quotes::kTextBehind;
}

void TakeValue(std::string_view text, ScriptLine& line) {
  text = Trim(text);
  if (!text.empty() && text.front() == '"') {
    TakeQuotedValue(text, line);
    return;
  }
  line.value = WithoutComment(text);
  line.has_value = !line.value.empty();
}

}  // namespace

ScriptLine SplitLine(std::string_view line) {
  line = Trim(line);
  ScriptLine parts;
  if (line.empty() || BeginsComment(line)) return parts;
  std::size_t end = 1;  // a line that begins with a quote has the quote as its word, so that it is a mistake
  while (end < line.size() && !IsBlank(line[end]) && line[end] != '"') ++end;
  parts.word = Part(line, 0, end);
  std::string_view rest = Part(line, end);
  if (IsSameText(parts.word, "Set")) {
    const std::size_t equals = PlaceOf(rest, '=', 0);
    parts.has_equals_sign = equals < rest.size();
    parts.name = Trim(Part(rest, 0, equals));
    rest = Part(rest, equals + 1);
  }
  TakeValue(rest, parts);
  return parts;
}

}  // namespace discwright::loader
