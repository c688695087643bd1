// Reads the environment variable SOURCE_DATE_EPOCH. If it is set, no date in an image is later than the time that it
// gives, so that two builds of the same files make the same image.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace discwright::base {

inline constexpr const char* kSourceDateVariable = "SOURCE_DATE_EPOCH";

// Reads a decimal number of seconds since 1970-01-01 00:00 UTC. Nothing for any other text, and for a time after the
// year 9999.
std::optional<std::int64_t> ParseSourceDate(std::string_view text);

// Returns a sentence for the user when the value of the variable cannot be used, otherwise an empty text. `value` is
// null when the variable is not set. The sentence contains the bytes of the value, so it is UTF-8 only if the value is.
std::string WhyNoSourceDate(const char* value);

}  // namespace discwright::base
