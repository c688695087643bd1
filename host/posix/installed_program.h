// Command lines of programs that the user has installed.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// The line, as ParseCommandLine reads it, that starts the first program `name` in the folders of PATH with exactly
// these arguments. Nothing when there is none.
std::optional<std::string> InstalledProgramLine(std::string_view name, const std::vector<std::string>& arguments);

}  // namespace discwright::host
