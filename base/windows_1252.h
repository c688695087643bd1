// Windows-1252 and UTF-8, for hosts that have no code page of their own.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace discwright::base {

// Nothing when a character has no byte there, or the text is not UTF-8.
std::optional<std::string> ToWindows1252(std::string_view text);

std::string FromWindows1252(std::string_view bytes);

}  // namespace discwright::base
