// Single keys of INI profile files, through the system's own access to them where it has one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// A file name without a folder means what it means to that access: a file in the folder of Windows there, in the
// current one elsewhere.

// The whole value of the first such key in the first such section, names in any letter case, without blanks and one
// pair of quotes, single or double, around it; nothing when there is none or the file cannot be read. Creates nothing.
std::optional<std::string> ReadProfileValue(std::string_view file, std::string_view section, std::string_view key);

// Replaces the key's value, or appends key, section or file; CR, LF and NUL become blanks. A file that cannot be read
// stays as it is.
Status WriteProfileValue(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

}  // namespace discwright::host
