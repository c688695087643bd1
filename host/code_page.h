// The code page of settings files and scripts: the ANSI code page on Windows, Windows-1252 elsewhere.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace discwright::host {

// Nothing when the code page cannot hold a character of the text, or the text is not UTF-8.
std::optional<std::string> CodePageBytes(std::string_view text);

std::string TextOfCodePage(std::string_view bytes);  // UTF-8

}  // namespace discwright::host
