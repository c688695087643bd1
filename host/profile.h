// Single text values from the two places where Windows programs keep them: INI profile files and the registry. Each
// call goes to the system, or to the file, anew.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// The value of the first such key in the first such section, names in any letter case, without blanks and one pair of
// quotes, single or double, around it. Nothing when there is none or the file cannot be read. Creates nothing.
// Windows has calls of its own for this, which look for a file name without a folder in the folder of Windows;
// elsewhere such a file is in the current folder.
std::optional<std::string> ReadProfileValue(std::string_view file, std::string_view section, std::string_view key);

// Replaces the key's value, or appends key, section or file; CR, LF and NUL become blanks. A file that cannot be read
// stays as it is.
Status WriteProfileValue(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

// The same for systems without such calls, and for what they cannot do: the file is read and rewritten as text. Order,
// comments, spacing and unknown text survive.
std::optional<std::string> ReadTextProfile(std::string_view file, std::string_view section, std::string_view key);
Status WriteTextProfile(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

// A text value of the registry below HKEY_LOCAL_MACHINE ("Software\\Maker\\Product"). Nothing when there is none, it is
// no text, or the system has no registry.
std::optional<std::string> LocalMachineText(std::string_view sub_key, std::string_view value_name);

}  // namespace discwright::host
