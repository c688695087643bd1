// Converts between Windows-1252 and UTF-8, for systems that have no such code page themselves.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace discwright::base {

// Nothing when the text is not UTF-8 or has a character that Windows-1252 lacks.
std::optional<std::string> ToWindows1252(std::string_view text);

std::string FromWindows1252(std::string_view bytes);

}  // namespace discwright::base
