// Text at the door of the system's ANSI calls: UTF-8 inside the core, the system's ANSI code page outside.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace discwright::host {

std::string Utf8OfAnsi(std::string_view ansi);

// Nothing when the code page cannot hold a character of the text, or the text is not UTF-8: a similar character would
// be another name.
std::optional<std::string> AnsiOfUtf8(std::string_view text);

// The same for any code page of the system.
std::optional<std::string> BytesInCodePage(std::string_view text, unsigned code_page);

// For showing: UTF-8 in any code page of the system, "?" or a similar character for what that lacks.
std::string NearestInCodePage(std::string_view text, unsigned code_page);

}  // namespace discwright::host
