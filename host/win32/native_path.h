// Paths at the door of the system's ANSI calls.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace discwright::host {

// A core path as the ANSI calls take it: "\" between names, otherwise as given. Nothing when the code page cannot hold
// it, or when it has "?" or "*", which the system gives for characters that its code page lacks and would take for
// wildcards.
std::optional<std::string> NativePath(std::string_view path);

// The same for a folder and a wildcard pattern in it.
std::optional<std::string> NativePattern(std::string_view folder, std::string_view pattern);

}  // namespace discwright::host
