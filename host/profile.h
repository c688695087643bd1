// Reads and writes single text values in the two places where Windows programs keep them: INI profile files and the
// registry. Nothing is kept in memory: each call reads or writes the file or the registry.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// The value of a key; std::nullopt when the file, the section or the key does not exist.
using ProfileValue = Result<std::optional<std::string>>;

// Reads the first key of this name in the first section of this name. Letter case does not matter in their names. The
// value is returned without the blanks around it and without one pair of single or double quotes. No file is created. A
// file that exists but cannot be read is a failure.
// Windows has its own calls for this. They look for a file name without a folder in the folder of Windows; on other
// systems such a file is in the current folder.
ProfileValue ReadProfileValue(std::string_view file, std::string_view section, std::string_view key);

// Replaces the value of a key. Adds the key, the section or the file when it is missing. A CR, LF or NUL in the value
// becomes a blank. A file that cannot be read does not change.
Status WriteProfileValue(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

// The same functions for systems without such calls, and for texts that these calls cannot handle. The file is read and
// rewritten as text. Its order, comments, spacing and unknown text do not change.
ProfileValue ReadTextProfile(std::string_view file, std::string_view section, std::string_view key);
Status WriteTextProfile(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

// A text value of the registry. `sub_key` is a key below HKEY_LOCAL_MACHINE, for example "Software\\Maker\\Product".
// Returns std::nullopt when the value does not exist or is not a text, or when the system has no registry.
std::optional<std::string> LocalMachineText(std::string_view sub_key, std::string_view value_name);

}  // namespace discwright::host
