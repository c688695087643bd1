// The table of the lines of a session file. The writer and the tests use kSessionLines; everything that looks for keys
// uses SessionKeys().
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "forms/all_windows.h"

namespace discwright::settings {

enum class ValueEncoding {
  kNone,            // the line of a section, or an empty line
  kCheckBox,        // the state as a number: 0 clear, 1 checked, 2 greyed
  kQuotedCheckBox,  // the same number in double quotes
  kText,            // the trimmed text
  kQuotedText,      // the trimmed text in double quotes
  kJoinDomain,      // OptJoinDomain as "True" or "False" in double quotes
};

struct SessionLine {
  std::string_view literal;  // the text of the line up to the value
  ValueEncoding encoding = ValueEncoding::kNone;
  forms::CheckBox& (*check_box)(forms::Windows& windows) = nullptr;  // for kCheckBox and kQuotedCheckBox
  forms::TextBox& (*text_box)(forms::Windows& windows) = nullptr;    // for kText and kQuotedText
};

inline constexpr std::size_t kSessionLineCount = 47;
extern const std::array<SessionLine, kSessionLineCount> kSessionLines;

// A line with a value. The names are parts of the table's literals.
struct SessionKey {
  std::string_view section;
  std::string_view key;
  const SessionLine* line = nullptr;
};

// The accepted values as a text for the user: "0 or 1", "True, False or a number" or "any text"; empty for kNone.
std::string_view AcceptedValues(ValueEncoding encoding);

// All keys in the order of the table.
std::vector<SessionKey> SessionKeys();

}  // namespace discwright::settings
