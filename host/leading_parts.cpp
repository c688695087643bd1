// Takes a command line apart.
#include "host/leading_parts.h"

#include <algorithm>

namespace discwright::host {
namespace {

constexpr std::string_view kBlanks = " \t";

}  // namespace

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::vector<LeadingPart> LeadingParts(std::string_view line) {
  if (line.starts_with('"')) {
    const std::string_view program = line.substr(1, line.find('"', 1) - 1);
    return {{program, std::min(program.size() + 2, line.size())}};
  }
  std::vector<LeadingPart> parts;
  for (std::size_t at = line.find_first_of(kBlanks); at != line.npos; at = line.find_first_of(kBlanks, at + 1)) {
    parts.push_back({line.substr(0, at), at});
  }
  parts.push_back({line, line.size()});
  return parts;
}

}  // namespace discwright::host
