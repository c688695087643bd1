// Reads and writes profile files as plain text. There is no registry on these systems.
#include "host/profile.h"

namespace discwright::host {

ProfileValue ReadProfileValue(std::string_view file, std::string_view section, std::string_view key) {
  return ReadTextProfile(file, section, key);
}

Status WriteProfileValue(std::string_view file, std::string_view section, std::string_view key,
                         std::string_view value) {
  return WriteTextProfile(file, section, key, value);
}

std::optional<std::string> LocalMachineText(std::string_view, std::string_view) { return std::nullopt; }

}  // namespace discwright::host
