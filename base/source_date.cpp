// Reads a number of seconds. It accepts no other text, because with a misread date the builds of one tree would differ.
#include "base/source_date.h"

#include <charconv>

namespace discwright::base {

namespace {

constexpr std::int64_t kLastSecondOf9999 = 253402300799;

}  // namespace

std::optional<std::int64_t> ParseSourceDate(std::string_view text) {
  std::int64_t seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && seconds >= 0 && seconds <= kLastSecondOf9999 ? std::optional(seconds) : std::nullopt;
}

std::string WhyNoSourceDate(const char* value) {
  if (value == nullptr || ParseSourceDate(value)) return "";
  return std::string(kSourceDateVariable)
      .append(" in the environment takes a number of seconds since 1970, up to the year 9999, not '")
      .append(value)
      .append("'");
}

}  // namespace discwright::base
