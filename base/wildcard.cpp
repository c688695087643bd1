// Matches names against DOS wildcards.
#include "base/wildcard.h"

#include <cstddef>

namespace discwright::base {
namespace {

// The number of bytes of the first character: one byte and the UTF-8 continuation bytes that follow it.
std::size_t CharacterLength(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0u) == 0x80) ++length;
  return length;
}

// Whether the rest of a pattern matches the end of a name. A dot matches it only as part of ".*" or ".?".
bool MatchesNothing(std::string_view pattern) { return pattern.find_first_not_of("*?.") == pattern.npos; }

// Matches one character of the pattern, which is not "*". Returns false when the name does not match.
bool Step(std::string_view& name, std::string_view& pattern) {
  if (pattern.empty()) return false;
  const char wanted = pattern.front();
  const bool at_part_end = name.empty() || name.front() == '.';
  if (wanted == '?') {
    if (!at_part_end) name.remove_prefix(CharacterLength(name));
  } else if (!name.empty() && name.front() == wanted) {
    name.remove_prefix(1);
  } else {
    return false;
  }
  pattern.remove_prefix(1);
  return true;
}

bool Matches(std::string_view name, std::string_view pattern) {
  std::string_view retry_name;
  std::string_view retry_pattern;
  bool can_retry = false;
  while (!name.empty() || !MatchesNothing(pattern)) {
    if (!pattern.empty() && pattern.front() == '*') {
      pattern.remove_prefix(1);
      retry_name = name;
      retry_pattern = pattern;
      can_retry = true;
    } else if (!Step(name, pattern)) {
      if (!can_retry || retry_name.empty()) return false;
      retry_name.remove_prefix(1);  // the last "*" now stands for one byte more
      name = retry_name;
      pattern = retry_pattern;
    }
  }
  return true;
}

}  // namespace

bool MatchesWildcard(std::string_view folded_name, std::string_view folded_pattern) {
  if (folded_pattern.ends_with('.')) {
    folded_pattern.remove_suffix(1);
    return folded_name.find('.') == folded_name.npos && Matches(folded_name, folded_pattern);
  }
  return Matches(folded_name, folded_pattern);
}

}  // namespace discwright::base
