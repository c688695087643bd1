// Splits one line of a script into its word and its value.
#pragma once

#include <cstdint>
#include <string_view>

namespace discwright::loader {

enum class Quotes : std::uint8_t {
  kFine,        // the value has no quotes, or two around it
  kNotClosed,   // the second quote is missing: the value reaches to the end of the line
  kTextBehind,  // something that is no comment stands behind the second quote
};

struct ScriptLine {
  std::string_view word;  // empty: nothing stands in the line but perhaps a comment
  std::string_view name;  // of Set: what stands before the equals sign
  std::string_view value;
  bool has_value = false;  // true for an empty value in quotes, too
  bool has_equals_sign = false;
  Quotes quotes = Quotes::kFine;
};

// `line` has no line end.
ScriptLine SplitLine(std::string_view line);

}  // namespace discwright::loader
