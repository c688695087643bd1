// There is none.
#include "host/registry.h"

namespace discwright::host {

std::optional<std::string> LocalMachineText(std::string_view, std::string_view) { return std::nullopt; }

}  // namespace discwright::host
