// Applies the rules for names on the disc. Its functions say which names can be stored, in which order they stand,
// which ones collide, and which match a -hide pattern.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace discwright::tools::mkisofs {

inline constexpr std::size_t kLongestName = 207;  // bytes; ISO 9660:1999 7.5.1 and 7.6.3

// Returns why a name cannot be stored. The text is empty when it can. A name is stored with the same bytes as on the
// host.
std::string_view WhyNotStorable(std::string_view name);

// Whether `name` comes before `other` in a directory (ISO 9660:1999 9.3): names are compared byte by byte, and a prefix
// comes before the longer name. Periods and semicolons are ordinary bytes, because an enhanced volume has no separators
// within names.
bool ComesBefore(std::string_view name, std::string_view other);

// Returns a hash that is equal for names that differ only in letter case.
std::uint64_t FoldedHash(std::string_view name);
bool DifferOnlyInCase(std::string_view name, std::string_view other);

// Whether a shell pattern matches the whole of `name`. A pattern may contain "*", "?", and "[...]" with ranges and with
// a leading "!" or "^" that negates the set. A "\" makes the next character stand for itself. Letter case matters. "*"
// and "?" also match a leading period.
bool MatchesPattern(std::string_view pattern, std::string_view name);

}  // namespace discwright::tools::mkisofs
