// The system knows no profile files: they are text.
#include "host/profile.h"

#include "host/text_profile.h"

namespace discwright::host {

std::optional<std::string> ReadProfileValue(std::string_view file, std::string_view section, std::string_view key) {
  return ReadTextProfile(file, section, key);
}

Status WriteProfileValue(std::string_view file, std::string_view section, std::string_view key,
                         std::string_view value) {
  return WriteTextProfile(file, section, key, value);
}

}  // namespace discwright::host
