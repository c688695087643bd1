// Compares names with patterns that contain DOS wildcards, such as "*.TXT".
#pragma once

#include <string_view>

namespace discwright::base {

// Whether a name matches a pattern. Both must have been folded by host::FoldCase. "*" stands for any text. "?" stands
// for one character; before a dot or the end it may also stand for none. ".*" also matches the end of a name, so "*.*"
// matches every name. "X*." matches the names that begin with X and have no dot.
bool MatchesWildcard(std::string_view folded_name, std::string_view folded_pattern);

}  // namespace discwright::base
