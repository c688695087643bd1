// SOURCE_DATE_EPOCH: the environment variable that says which time no date in an image is later than.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace discwright::base {

inline constexpr const char* kSourceDateVariable = "SOURCE_DATE_EPOCH";

// Seconds since 1970-01-01 00:00 UTC, written as a decimal number from 0 to the last second of the year 9999. Nothing
// when it is anything else.
std::optional<std::int64_t> ParseSourceDate(std::string_view text);

// What is wrong with the variable's value (null: it is not set), as a sentence for the user; empty when nothing is. The
// sentence holds the value unchanged: where the environment is not in UTF-8, the sentence is not either.
std::string WhyNoSourceDate(const char* value);

}  // namespace discwright::base
