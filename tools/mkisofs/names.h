// Names of files and folders on the disc: which can be stored, in which order, which are one and which are hidden.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace discwright::tools::mkisofs {

inline constexpr std::size_t kLongestName = 207;  // bytes; ISO 9660:1999 7.5.1 and 7.6.3

// Why a name cannot be stored; empty when it can. Names are stored as they are on disk, byte for byte.
std::string_view WhyNotStorable(std::string_view name);

// Whether `name` stands before `other` in its folder (ISO 9660:1999 9.3): by the value of their bytes, and the start
// of a name before the name. An enhanced volume knows no separators within a name.
bool ComesBefore(std::string_view name, std::string_view other);

// Equal for names that differ only in letter case; of names that differ in more, hardly ever.
std::uint64_t FoldedHash(std::string_view name);
bool DifferOnlyInCase(std::string_view name, std::string_view other);

// Whether the whole of `name` is what a shell's pattern describes: "*", "?", "[...]" with ranges and "!" or "^" to
// negate, "\" before a character that stands for itself. Letter case counts, and a leading period is nothing special.
bool MatchesPattern(std::string_view pattern, std::string_view name);

}  // namespace discwright::tools::mkisofs
