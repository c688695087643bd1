// Rules for names on the disc: which can be stored, their order, which ones collide, and which match a -hide pattern.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace discwright::tools::mkisofs {

inline constexpr std::size_t kLongestName = 207;  // bytes; ISO 9660:1999 7.5.1 and 7.6.3

// Why a name cannot be stored; empty when it can. A name is stored byte for byte as it is on the host.
std::string_view WhyNotStorable(std::string_view name);

// The order of names in a directory (ISO 9660:1999 9.3): byte by byte, a prefix before the longer name. Periods and
// semicolons are ordinary bytes, because an enhanced volume has no separators within names.
bool ComesBefore(std::string_view name, std::string_view other);

// A hash that is equal for names that differ only in letter case.
std::uint64_t FoldedHash(std::string_view name);
bool DifferOnlyInCase(std::string_view name, std::string_view other);

// Whether a shell pattern matches the whole of `name`: "*", "?", "[...]" with ranges and "!" or "^" to negate, "\"
// before a character that stands for itself. Letter case matters. "*" and "?" also match a leading period.
bool MatchesPattern(std::string_view pattern, std::string_view name);

}  // namespace discwright::tools::mkisofs
