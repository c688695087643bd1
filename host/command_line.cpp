// Finds the programs that a line may name, and splits arguments.
#include "host/command_line.h"

#include <algorithm>

namespace discwright::host {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// Removes a quote and the `backslashes` before it from the front of `text`, and adds to `argument` what they stand for.
void TakeQuote(std::string_view& text, std::size_t backslashes, bool& is_quoted, std::string& argument) {
  const bool is_escaped = backslashes % 2 == 1;
  text.remove_prefix(backslashes + 1);
  const bool is_doubled = !is_escaped && is_quoted && text.starts_with('"');  // between quotes, two quotes are one
  if (is_doubled) text.remove_prefix(1);
  argument.append(backslashes / 2, '\\');
  if (is_escaped || is_doubled) {
    argument += '"';
  } else {
    is_quoted = !is_quoted;
  }
}

// Removes one argument from the front of `text` and returns it.
std::string TakeArgument(std::string_view& text) {
  std::string argument;
  for (bool is_quoted = false; !text.empty() && (is_quoted || kBlanks.find(text.front()) == kBlanks.npos);) {
    const std::size_t backslashes = std::min(text.find_first_not_of('\\'), text.size());
    if (text.substr(backslashes).starts_with('"')) {
      TakeQuote(text, backslashes, is_quoted, argument);
    } else {
      const std::size_t plain = std::max<std::size_t>(backslashes, 1);
      argument.append(text.substr(0, plain));
      text.remove_prefix(plain);
    }
  }
  return argument;
}

}  // namespace

std::vector<LeadingPart> LeadingParts(std::string_view line) {
  line = WithoutLeadingBlanks(line);
  if (line.starts_with('"')) {
    const std::string_view program = line.substr(1, line.find('"', 1) - 1);
    return {{program, line.substr(std::min(program.size() + 2, line.size()))}};
  }
  std::vector<LeadingPart> parts;
  for (std::size_t at = line.find_first_of(kBlanks); at != line.npos; at = line.find_first_of(kBlanks, at + 1)) {
    parts.push_back({line.substr(0, at), line.substr(at)});
  }
  parts.push_back({line, {}});
  return parts;
}

std::vector<std::string> SplitArguments(std::string_view text) {
  std::vector<std::string> arguments;
  for (text = WithoutLeadingBlanks(text); !text.empty(); text = WithoutLeadingBlanks(text)) {
    arguments.push_back(TakeArgument(text));
  }
  return arguments;
}

}  // namespace discwright::host
