// Checks, compares and matches names.
#include "tools/mkisofs/names.h"

#include <algorithm>
#include <functional>
#include <string>

#include "host/names.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

bool IsAscii(std::string_view name) {
  return std::none_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

// The result of comparing a "[...]" at the start of a pattern with a character.
struct Set {
  std::size_t length = 0;  // the length of the "[...]" in the pattern; 0 when "]" is missing and "[" stands for itself
  bool matches = false;
};

// Returns the character at `at`. If it is a "\" and not the last character, returns the next one, which stands for
// itself. Moves `at` behind the returned character.
unsigned char TakeCharacter(std::string_view pattern, std::size_t& at) {
  if (pattern[at] == '\\' && at + 1 < pattern.size()) ++at;
  return static_cast<unsigned char>(pattern[at++]);
}

Set MatchSet(std::string_view pattern, unsigned char character) {
  std::size_t at = 1;
  const bool negated = at < pattern.size() && (pattern[at] == '!' || pattern[at] == '^');
  if (negated) ++at;
  bool found = false;
  // A "]" right after the "[" is one of the characters and does not close the set.
  for (const std::size_t first = at; at < pattern.size() && (at == first || pattern[at] != ']');) {
    const unsigned char low = TakeCharacter(pattern, at);
    unsigned char high = low;
    if (at + 1 < pattern.size() && pattern[at] == '-' && pattern[at + 1] != ']') high = TakeCharacter(pattern, ++at);
    found = found || (low <= character && character <= high);
  }
  if (at >= pattern.size()) return {};
  return {at + 1, found != negated};
}

// Returns the length of the first part of a pattern if it matches `character`, otherwise 0. The first part must not be
// "*".
std::size_t MatchOne(std::string_view pattern, char character) {
  if (pattern.front() == '?') return 1;
  if (pattern.front() == '[') {
    const Set set = MatchSet(pattern, static_cast<unsigned char>(character));
    if (set.length > 0) return set.matches ? set.length : 0;
  }
  std::size_t taken = 0;
  return TakeCharacter(pattern, taken) == static_cast<unsigned char>(character) ? taken : 0;
}

}  // namespace

std::string_view WhyNotStorable(std::string_view name) {
  if (name.size() > kLongestName) return "the name is longer than 207 bytes";
  // On the disc these two single bytes name a folder itself and its parent (ECMA-119 6.8.2.2).
  if (name == std::string_view("\0", 1) || name == "\1") return "the name cannot be stored on a CD";
  return name.empty() ? "the name is empty" : "";
}

bool ComesBefore(std::string_view name, std::string_view other) { return name < other; }

std::uint64_t FoldedHash(std::string_view name) {
  if (!IsAscii(name)) return std::hash<std::string>()(host::FoldCase(name));
  char folded[kLongestName];
  const std::size_t size = std::min(name.size(), sizeof folded);
  std::transform(name.begin(), name.begin() + static_cast<std::ptrdiff_t>(size), folded, Lower);
  return std::hash<std::string_view>()({folded, size});
}

bool DifferOnlyInCase(std::string_view name, std::string_view other) {
  return host::FoldCase(name) == host::FoldCase(other);
}

bool MatchesPattern(std::string_view pattern, std::string_view name) {
  std::size_t at = 0, in_name = 0;
  // When the text after the last "*" does not match, matching goes on from here: the "*" takes one character more.
  std::size_t after_star = kNowhere, star_end = 0;
  while (in_name < name.size()) {
    if (at < pattern.size() && pattern[at] == '*') {
      after_star = ++at;
      star_end = in_name;
      continue;
    }
    const std::size_t taken = at < pattern.size() ? MatchOne(pattern.substr(at), name[in_name]) : 0;
    if (taken > 0) {
      at += taken;
      ++in_name;
    } else if (after_star != kNowhere) {
      at = after_star;
      in_name = ++star_end;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', at) == kNowhere;
}

}  // namespace discwright::tools::mkisofs
