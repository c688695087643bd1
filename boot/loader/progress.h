// Words a line with a bar that shows how much of a file is loaded.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace discwright::loader {

// Returns "Loading <name>", a bar of 20 characters of code page 437, and per cent: as long for every `done` up to
// `size`, so that each line covers the one before. Of a long name the end is shown. The text is written to `to`, and
// cut if that is too small; 78 characters are enough.
std::string_view ProgressLine(std::string_view name, std::uint32_t done, std::uint32_t size, std::span<char> to);

}  // namespace discwright::loader
