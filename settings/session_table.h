// The session settings file's lines: one table for its writer, its reader and its tests.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "forms/all_windows.h"

namespace discwright::settings {

enum class ValueEncoding {
  kNone,            // a section's header or a blank line
  kCheckBox,        // the state as a number
  kQuotedCheckBox,  // the state as a number in double quotes
  kText,            // the trimmed text
  kQuotedText,      // the trimmed text in double quotes
  kJoinDomain,      // OptJoinDomain as "True" or "False" in double quotes
};

struct SessionLine {
  std::string_view literal;  // the line as it stands in the file, up to the value
  ValueEncoding encoding = ValueEncoding::kNone;
  forms::CheckBox& (*check_box)(forms::Windows& windows) = nullptr;  // of the two encodings of check boxes
  forms::TextBox& (*text_box)(forms::Windows& windows) = nullptr;    // of the two encodings of texts
};

inline constexpr std::size_t kSessionLineCount = 47;
extern const std::array<SessionLine, kSessionLineCount> kSessionLines;

// A line with a value, and where it stands; the names are parts of the table's literals.
struct SessionKey {
  std::string_view section;
  std::string_view key;
  const SessionLine* line = nullptr;
};

// What a value must be, for the user: "0 or 1", "True, False or a number", "any text"; empty where there is no value.
std::string_view WhatItTakes(ValueEncoding encoding);

// All keys in the order of the table.
std::vector<SessionKey> SessionKeys();

}  // namespace discwright::settings
