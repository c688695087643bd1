// DOS wildcards.
#pragma once

#include <string_view>

namespace discwright::base {

// Whether a name matches a pattern, both folded by FoldCase. "*" is any text, "?" one character or none before a dot
// or the end; ".*" also matches a name that ends there, so "*.*" is every name; "X*." is every X name without a dot.
bool MatchesWildcard(std::string_view folded_name, std::string_view folded_pattern);

}  // namespace discwright::base
