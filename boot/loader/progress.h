// Makes the line of text that shows how much of a file is loaded.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace discwright::loader {

// Returns "Loading <name>", a bar of 20 characters of code page 437, and the loaded part in per cent. `done` is at most
// `size`. The lines of one file have the same length, so each covers the one before. Of a long name only the end is
// shown. The text is written to `to`, and cut if that is too small; 78 characters are enough.
std::string_view ProgressLine(std::string_view name, std::uint32_t done, std::uint32_t size, std::span<char> to);

}  // namespace discwright::loader
