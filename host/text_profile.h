// Profile files read and rewritten as a whole, where the system does not do it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// As the two functions of host/profile.h. Order, comments, spacing and unknown text survive a write.
std::optional<std::string> ReadTextProfile(std::string_view file, std::string_view section, std::string_view key);
Status WriteTextProfile(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

}  // namespace discwright::host
