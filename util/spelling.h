// Suggests the right name for a misspelled one.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace discwright::util {

// The candidate that is the fewest changes away from `word`, the first of several; letter case is no change, two
// neighbouring characters that changed places are one. Nothing when none is near: up to a third of the word's
// characters may be wrong, in a short word two, in one of up to four characters only one.
std::optional<std::string_view> Closest(std::string_view word, std::span<const std::string_view> candidates);

}  // namespace discwright::util
