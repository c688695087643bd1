// The system's registry, as far as the program reads it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace discwright::host {

// A text value below HKEY_LOCAL_MACHINE ("Software\\Maker\\Product"); nothing when there is none, it is no text, or the
// system has no registry.
std::optional<std::string> LocalMachineText(std::string_view sub_key, std::string_view value_name);

}  // namespace discwright::host
