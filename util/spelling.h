// Suggests the correct name for a misspelled one: call Closest with the names that exist.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace discwright::util {

// The candidate that differs from `word` by the fewest changes; the first one if there are several. Changes are a
// missing, an additional and a different character, and two neighbouring characters in the wrong order. Letter case is
// ignored. Returns nothing when every candidate differs by more than a third of the word's characters. For short words
// the limit is 2 changes, for words of up to 4 characters 1 change.
std::optional<std::string_view> Closest(std::string_view word, std::span<const std::string_view> candidates);

}  // namespace discwright::util
